#include "VeskoCore/base/JsonError.h"
#include "tests/core/sync/TextSyncStoreFixture.h"

using namespace vesko;
using testing::Optional;

namespace {

using Failure = TextSyncFailure;

class TextSyncStateTest : public TextSyncStoreFixture { };

const std::string first = idNumber(1).text(), second = idNumber(2).text(),
                  entity = idNumber(9).text();

std::string revision(const std::string& id, const std::string& parents)
{
    return R"({"entity":{"id":")" + entity + R"(","kind":"note"},"id":")" + id + R"(","parents":[)"
        + parents + "]}";
}

std::string quoted(const std::string& id)
{
    return '"' + id + '"';
}

std::string journalWith(const std::string& revisions, const std::string& schema = "1")
{
    return R"({"revisions":[)" + revisions + R"(],"schema":)" + schema + "}";
}

std::string state(
    const std::string& journal, const std::string& pending = "", const std::string& schema = "1")
{
    return R"({"journal":)" + journal + R"(,"pending":[)" + pending + R"(],"schema":)" + schema
        + "}";
}

} // namespace

// Each is also refused by a store, which leaves the file alone and lets go of the lock.
TEST_F(TextSyncStateTest, aFileThatBreaksARuleIsRefused)
{
    struct Case {
        const char* name;
        std::string text;
        std::optional<TextSyncFailure::Kind> failure; // else a JsonError
    };
    const auto one = revision(first, "");
    const std::vector<Case> cases{
        { "nothing", "", {} },
        { "no JSON", "{", {} },
        { "something behind it", state(journalWith("")) + "{}", {} },
        { "no UTF-8", "{\"\xFF\":1," + state(journalWith("")).substr(1), {} },
        { "an array", "[]", {} },
        { "no journal", R"({"pending":[],"schema":1})", {} },
        { "no pending", R"({"journal":)" + journalWith("") + R"(,"schema":1})", {} },
        { "no schema", R"({"journal":)" + journalWith("") + R"(,"pending":[]})", {} },
        { "no schema of the journal", state(R"({"revisions":[]})"), {} },
        { "no revisions", state(R"({"schema":1})"), {} },
        { "a schema of another type", state(journalWith(""), "", "\"1\""), {} },
        { "a pending that is no id", state(journalWith(one), "\"x\""), {} },
        { "a revision that is damaged", state(journalWith(one + ",{}")), {} },
        { "another schema", state(journalWith(""), "", "2"), Failure::unsupportedSchema },
        { "schema 0", state(journalWith(""), "", "0"), Failure::unsupportedSchema },
        { "another schema of the journal", state(journalWith("", "2")),
            Failure::unsupportedSchema },
        { "another schema with other revisions", state(journalWith("{\"v\":2}", "2")),
            Failure::unsupportedSchema },
        { "something unknown that is pending", state(journalWith(one), quoted(second)),
            Failure::invalidRevision },
        { "a parent that is pending and not here",
            state(journalWith(revision(second, quoted(first))), quoted(first)),
            Failure::invalidRevision },
        { "a revision that is its own parent", state(journalWith(revision(first, quoted(first)))),
            Failure::invalidRevision },
        { "a cycle",
            state(journalWith(
                revision(first, quoted(second)) + "," + revision(second, quoted(first)))),
            Failure::invalidRevision },
        { "two revisions of one id",
            state(journalWith(one + "," + revision(first, quoted(second)))),
            Failure::invalidRevision },
        { "a journal and a state of another schema", state(journalWith("", "3"), "", "2"),
            Failure::unsupportedSchema },
        { "a broken journal in a state of another schema",
            state(journalWith(revision(first, quoted(first))), "", "2"), Failure::invalidRevision },
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.name);
        if (given.failure) {
            EXPECT_THAT(
                failureOf([&] { TextSyncState::decode(given.text); }), Optional(*given.failure));
        } else {
            EXPECT_THROW(TextSyncState::decode(given.text), JsonError);
        }
        putJournal(given.text);
        EXPECT_ANY_THROW(opened());
        EXPECT_EQ(bytesOf(account / "journal.json"), given.text);
        putJournal(state(journalWith("")));
        EXPECT_NO_THROW(opened());
    }
}

TEST_F(TextSyncStateTest, whatNobodyKnowsIsIgnoredAndRepeatsAreOne)
{
    const auto one = revision(first, "");
    auto text = state(journalWith(one + "," + one), quoted(first) + "," + quoted(first));
    text.insert(1, "\"later\":{\"x\":[null]},");
    const auto decoded = TextSyncState::decode(text);
    EXPECT_EQ(decoded.journal.size(), 1u);
    EXPECT_EQ(decoded.pending.size(), 1u);
}

TEST_F(TextSyncStateTest, aStateReadsAsItWasWritten)
{
    TextSyncState written;
    written.journal.merge(SharedArray(chain(200)));
    written.pending.change({}, { idNumber(3), idNumber(150) });
    EXPECT_EQ(TextSyncState::decode(textOf(written)), written);
    EXPECT_EQ(TextSyncState::decode(textOf({})), TextSyncState());
}

TEST_F(TextSyncStateTest, filesAreWrittenAgainByteForByte)
{
    for (const char* const name : { "empty.json", "full.json" }) {
        SCOPED_TRACE(name);
        const auto text = bytesOf(std::filesystem::path(VESKO_TEST_DATA) / "sync" / name);
        EXPECT_EQ(textOf(TextSyncState::decode(text)), text);
    }
    const auto full = TextSyncState::decode(
        bytesOf(std::filesystem::path(VESKO_TEST_DATA) / "sync" / "full.json"));
    EXPECT_EQ(full.journal.size(), 7u);
    EXPECT_EQ(full.pending.size(), 2u);
    EXPECT_FALSE(full.journal.isComplete());
}
