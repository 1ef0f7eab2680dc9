#include "tests/core/sync/TextSyncStoreFixture.h"

#include <pthread.h>

using namespace vesko;
using testing::Optional;

namespace {

using Failure = TextSyncFailure;
constexpr unsigned most = 50'000;

// One tombstone after the other, numbered from 1.
SharedArray<TextSyncRevision> line(unsigned length)
{
    std::vector<TextSyncRevision> revisions;
    while (revisions.size() < length) {
        revisions.push_back(tombstone(idNumber(static_cast<unsigned>(revisions.size()) + 1)));
        if (revisions.size() > 1)
            revisions.back().parents = { revisions[revisions.size() - 2].id };
    }
    return SharedArray(std::move(revisions));
}

SharedArray<TextSyncRevision> part(
    const SharedArray<TextSyncRevision>& all, std::size_t from, std::size_t to)
{
    std::vector<std::shared_ptr<const TextSyncRevision>> part;
    for (auto at = from; at < to; ++at)
        part.push_back(all.shared(at));
    return SharedArray<TextSyncRevision>(std::move(part));
}

TextSyncJournal journalOf(const SharedArray<TextSyncRevision>& revisions)
{
    TextSyncJournal journal;
    journal.merge(revisions);
    return journal;
}

// Where anything that goes as deep as a history is long ends in a crash.
void onSmallStack(std::function<void()> work)
{
    constexpr std::size_t stack = 262'144;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, stack), 0);
    pthread_t thread;
    const auto run = [](void* given) -> void* {
        (*static_cast<std::function<void()>*>(given))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

} // namespace

TEST(TextSyncLimitsTest, aJournalHolds50000RevisionsAndNotOneMore)
{
    const auto all = line(most + 1);
    auto journal = journalOf(part(all, 0, most - 1));
    EXPECT_THAT(failureOf([&] { journal.merge(part(all, most - 1, most + 1)); }),
        Optional(Failure::tooLarge))
        << "a batch of which one would fit";
    EXPECT_EQ(journal.size(), most - 1);
    journal.merge(part(all, most - 1, most));
    EXPECT_EQ(journal.size(), most);

    const auto full = journal;
    EXPECT_THAT(failureOf([&] { journal.merge({ all.back() }); }), Optional(Failure::tooLarge));
    EXPECT_THAT(failureOf([&] { journal.remove(projectID()); }), Optional(Failure::tooLarge));
    EXPECT_THAT(failureOf([&] { journal.write(projectNamed(idNumber(900'000), "Home")); }),
        Optional(Failure::tooLarge));
    EXPECT_TRUE(journal == full);
    EXPECT_EQ(journal.find(all.back().id), nullptr);

    // A repeat is no further revision.
    journal.merge(part(all, 0, most));
    EXPECT_TRUE(journal == full);

    // What is wrong with a revision comes before the number of all, what is wrong with the graph
    // behind it.
    auto ownParent = all.back();
    ownParent.parents = { ownParent.id };
    EXPECT_THAT(
        failureOf([&] { journal.merge({ ownParent }); }), Optional(Failure::invalidRevision));
    auto ofAnother = all.back();
    ofAnother.entity = projectID(idNumber(800'000));
    EXPECT_THAT(failureOf([&] { journal.merge({ ofAnother }); }), Optional(Failure::tooLarge));
}

TEST(TextSyncLimitsTest, aBatchOfMoreThan50000IsRefusedWhateverItHolds)
{
    const auto one = projectRevision(idNumber(1));
    const auto ownParent = projectRevision(idNumber(2), { idNumber(2) });
    TextSyncJournal journal;
    std::vector<TextSyncRevision> batch(most, one);
    journal.merge(SharedArray(batch));
    EXPECT_EQ(journal.size(), 1u) << "repeats count in a batch, not in a journal";
    batch.push_back(one);
    EXPECT_THAT(failureOf([&] { journal.merge(SharedArray(batch)); }), Optional(Failure::tooLarge));
    batch.front() = ownParent;
    EXPECT_THAT(failureOf([&] { journal.merge(SharedArray(batch)); }), Optional(Failure::tooLarge))
        << "the number comes first";
    batch.pop_back();
    EXPECT_THAT(
        failureOf([&] { journal.merge(SharedArray(batch)); }), Optional(Failure::invalidRevision));
}

TEST(TextSyncLimitsTest, aLineOf50000ParentsNeedsNoDeepStack)
{
    const auto all = line(most);
    const auto text = textOf({ journalOf(all), {} });
    onSmallStack([&] {
        const auto state = TextSyncState::decode(text);
        EXPECT_EQ(state.journal.heads(projectID()).size(), 1u);
        EXPECT_EQ(textOf(state), text);

        // The younger half first: its oldest came before its parent, whose ancestors all count.
        auto journal = journalOf(part(all, most / 2, most));
        journal.merge(part(all, 0, most / 2));
        EXPECT_TRUE(journal == state.journal);

        // A ring of them all.
        auto first = all[0];
        first.parents = { all.back().id };
        auto ring = journalOf(part(all, 1, most));
        EXPECT_THAT(failureOf([&] { ring.merge({ first }); }), Optional(Failure::invalidRevision));
    });
}

TEST(TextSyncLimitsTest, aFileWithMoreRevisionsOrParentsThanThereMayBeIsRefused)
{
    const auto text = textOf({ journalOf(line(1)), {} });
    const auto begin = text.find("      {"), end = text.find("\n    ],\n    \"schema\"");
    std::string revisions = text.substr(begin, end - begin);
    for (unsigned count = 1; count <= most; ++count)
        revisions += "," + text.substr(begin, end - begin);
    auto many = text;
    many.replace(begin, end - begin, revisions);
    EXPECT_THAT(failureOf([&] { TextSyncState::decode(many); }), Optional(Failure::tooLarge));

    std::string parents = "\"parents\" : [\"" + idNumber(2).text() + '"';
    for (unsigned number = 3; number < 200'000; ++number)
        parents += ",\"" + idNumber(number).text() + '"';
    auto wide = text;
    wide.replace(wide.find("\"parents\" : ["), std::string("\"parents\" : [").size(), parents);
    EXPECT_THAT(
        failureOf([&] { TextSyncState::decode(wide); }), Optional(Failure::invalidRevision));
}

TEST(TextSyncLimitsTest, aFileThatIsNestedWithoutEndIsRefused)
{
    const auto text = textOf({});
    for (const auto& bracket : { std::string("["), std::string("{\"x\":") }) {
        std::string deep;
        for (int level = 0; level < 1'000'000; ++level)
            deep += bracket;
        onSmallStack([&] {
            EXPECT_THROW(TextSyncState::decode(deep), JsonError);
            EXPECT_THROW(TextSyncState::decode("{\"x\":" + deep + "," + text.substr(1)), JsonError);
        });
    }
}

// Which failure a local change ends in when several are due.
TEST(TextSyncLimitsTest, aLocalChangeIsJudgedInOrder)
{
    TextSyncJournal journal;
    for (unsigned number = 1; number <= 65; ++number)
        journal.merge({ projectRevision(idNumber(number)) });
    const auto project = idNumber(900'000);
    const auto large = projectNamed(project, std::string(600'000, 'x'));
    const auto write
        = [&](const TextSyncValue& value) { return verdictOf([&] { journal.write(value); }); };
    const auto is = [](TextSyncFailure::Kind kind) { return "failure " + std::to_string(kind); };
    EXPECT_EQ(write(large), is(Failure::invalidRevision)) << "too many heads before too many bytes";
    EXPECT_EQ(write(projectNamed(project, "\xFF")), "JSON error");

    journal.merge({ projectRevision(idNumber(100), { idNumber(101) }, idNumber(5)) });
    EXPECT_EQ(write(large), is(Failure::incompleteHistory)) << "a missing parent before both";
    EXPECT_EQ(write(projectNamed(project, "\xFF")), "JSON error") << "but not before the encoding";
    EXPECT_EQ(journal.size(), 66u);
}

// Which failure a revision is refused with when several are due, up to the known one.
TEST(TextSyncLimitsTest, aRevisionIsJudgedInOrder)
{
    TextSyncJournal journal;
    journal.merge({ projectRevision(idNumber(1)) });
    auto large = projectRevision(idNumber(1));
    large.value = projectNamed(large.entity.id, std::string(600'000, 'x'));
    auto noText = projectRevision(idNumber(1));
    noText.value = projectNamed(noText.entity.id, "\xFF");
    auto largeWithoutText = projectRevision(idNumber(2));
    largeWithoutText.value = projectNamed(large.entity.id, std::string(600'000, '\xFF'));
    auto largeOfAnother = large;
    largeOfAnother.entity.kind = TextSyncID::Kind::note;
    auto largeWithParents = large;
    for (unsigned parent = 2; parent <= 66; ++parent)
        largeWithParents.parents.insert(idNumber(parent));

    const auto verdict = [&](const TextSyncRevision& revision) {
        return verdictOf([&] { journal.merge({ revision }); });
    };
    const auto is = [](TextSyncFailure::Kind kind) { return "failure " + std::to_string(kind); };
    EXPECT_EQ(verdict(largeOfAnother), is(Failure::invalidRevision));
    EXPECT_EQ(verdict(largeWithParents), is(Failure::invalidRevision));
    EXPECT_EQ(verdict(large), is(Failure::tooLarge)) << "before it is compared with the known one";
    EXPECT_EQ(verdict(noText), "JSON error") << "likewise";
    EXPECT_EQ(verdict(largeWithoutText), "JSON error") << "what has no form has no size";
    EXPECT_EQ(journal.size(), 1u);
}
