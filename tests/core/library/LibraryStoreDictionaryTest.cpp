#include "tests/core/library/LibraryFixture.h"

namespace vesko {
namespace {

using namespace std::chrono_literals;
using Source = DictionaryEntry::Source;

class LibraryStoreDictionaryTest : public LibraryFixture {
protected:
    DictionaryEntry entry(const std::string& original, const std::string& replacement) const
    {
        return { Uuid::random(), original, replacement, true, Source::manual, clock.now() };
    }
    // A library with so many entries: "term 0", "term 1" ...
    void given(int entries)
    {
        std::vector<DictionaryEntry> all;
        for (int number = 0; number < entries; ++number)
            all.push_back(entry("term " + std::to_string(number), "x"));
        Library library;
        library.dictionary = SharedArray(std::move(all));
        put(library);
        store.emplace(root, clock);
    }
    const SharedArray<DictionaryEntry>& entries() const { return store->snapshot().dictionary; }

    std::optional<LibraryStore> store;
};

TEST_F(LibraryStoreDictionaryTest, ANewEntryIsTakenAsGivenWithTrimmedTerms)
{
    given(1);
    auto added = entry(" vesco\n", "\tVesko ");
    added.enabled = false;
    added.source = Source::suggestion;
    added.createdAt.time -= 24h;
    store->saveDictionaryEntry(added);
    added.original = "vesco";
    added.replacement = "Vesko";
    ASSERT_EQ(entries().size(), 2U);
    EXPECT_EQ(entries()[1], added);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreDictionaryTest, AnEntryThatExistsIsReplacedInItsPlace)
{
    given(3);
    auto edited = entries()[1];
    edited.original = "TERM 1";
    edited.replacement = "new";
    edited.enabled = false;
    store->saveDictionaryEntry(edited);
    ASSERT_EQ(entries().size(), 3U);
    EXPECT_EQ(entries()[1], edited);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreDictionaryTest, TermsHaveOneToEightyCharactersInOneLineAndDiffer)
{
    given(0);
    std::string eighty, eightyOne;
    for (int count = 0; count < 80; ++count)
        eighty += "e\u0301";
    eightyOne = eighty + "e";
    struct Case {
        const char* name;
        std::string original, replacement;
        bool valid;
    };
    for (const auto& [name, original, replacement, valid] : {
             Case{ "empty original", " ", "b", false },
             Case{ "empty replacement", "a", "\n", false },
             Case{ "the same", "a", " a ", false },
             Case{ "the same in another encoding", "é", "e\u0301", false },
             Case{ "another case", "a", "A", true },
             Case{ "80 characters", "c" + eighty.substr(3), eighty, true },
             Case{ "81 in the original", eightyOne, "b", false },
             Case{ "81 in the replacement", "d", eightyOne, false },
             Case{ "line feed", "a\nb", "b", false },
             Case{ "line feed in the replacement", "e", "b\nc", false },
             Case{ "carriage return and line feed", "a\r\nb", "b", false },
             Case{ "carriage return", "a\rb", "b", false },
             Case{ "vertical tab", "a\vb", "b", false },
             Case{ "form feed", "a\fb", "b", false },
             Case{ "next line", "a\u0085b", "b", false },
             Case{ "line separator", "a\u2028b", "b", false },
             Case{ "paragraph separator", "f", "a\u2029b", false },
             Case{ "a tab is no line end", "a\tb", "b", true },
             Case{ "a line end around the term", "\ng\n", "b", true },
         }) {
        SCOPED_TRACE(name);
        const auto given = entry(original, replacement);
        if (valid)
            EXPECT_NO_THROW(store->saveDictionaryEntry(given));
        else
            expectRefused(
                *store, VeskoError::invalidDictionary, [&] { store->saveDictionaryEntry(given); });
    }
}

TEST_F(LibraryStoreDictionaryTest, AnOriginalHasOneEntryIgnoringCase)
{
    given(2);
    store->saveDictionaryEntry(entry("Straße", "x"));
    for (const auto* original : { "term 0", " TERM 0", "STRASSE" }) {
        expectRefused(*store, VeskoError::duplicateDictionary,
            [&] { store->saveDictionaryEntry(entry(original, "y")); });
    }
    auto edited = entries()[1];
    edited.original = "Term 0";
    expectRefused(
        *store, VeskoError::duplicateDictionary, [&] { store->saveDictionaryEntry(edited); });
}

TEST_F(LibraryStoreDictionaryTest, AFullDictionaryTakesEditsButNoNewEntry)
{
    given(999);
    store->saveDictionaryEntry(entry("last", "x"));
    expectRefused(*store, VeskoError::invalidDictionary,
        [&] { store->saveDictionaryEntry(entry("one more", "x")); });
    // What is wrong with the term itself is told first.
    expectRefused(*store, VeskoError::duplicateDictionary,
        [&] { store->saveDictionaryEntry(entry("LAST", "x")); });
    auto edited = entries()[500];
    edited.replacement = "edited";
    store->saveDictionaryEntry(edited);
    EXPECT_EQ(entries()[500], edited);
    EXPECT_EQ(entries().size(), 1000U);
}

TEST_F(LibraryStoreDictionaryTest, RemoveTakesEveryEntryOfThatIdentifier)
{
    Library library;
    const auto twin = entry("a", "b");
    const auto other = entry("c", "d");
    library.dictionary = { twin, other, twin };
    put(library);
    store.emplace(root, clock);
    store->removeDictionaryEntry(twin.id);
    ASSERT_EQ(entries().size(), 1U);
    EXPECT_EQ(entries()[0].id, other.id);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreDictionaryTest, RemovingAnUnknownEntryIsWrittenAllTheSame)
{
    given(1);
    std::filesystem::remove(root / "library.json");
    store->removeDictionaryEntry(Uuid::random());
    EXPECT_EQ(entries().size(), 1U);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreDictionaryTest, LearnCorrectionsMakesEntries)
{
    given(0);
    clock.turn(1min);
    EXPECT_EQ(store->learnCorrections({ { "vesco", "Vesko", true }, { " two", "2", false } }), 2U);
    ASSERT_EQ(entries().size(), 2U);
    const DictionaryEntry first{ entries()[0].id, "vesco", "Vesko", true, Source::learned,
        clock.now() };
    const DictionaryEntry second{ entries()[1].id, " two", "2", false, Source::suggestion,
        clock.now() };
    EXPECT_EQ(entries()[0], first);
    EXPECT_EQ(entries()[1], second);
    EXPECT_NE(first.id, second.id);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreDictionaryTest, LearnCorrectionsNeverChangesAnEntry)
{
    given(1);
    auto disabled = entries()[0];
    disabled.enabled = false;
    disabled.source = Source::suggestion;
    store->saveDictionaryEntry(disabled);
    const auto before = contentOf(root);
    EXPECT_EQ(store->learnCorrections({ { "TERM 0", "other", true } }), 0U);
    EXPECT_EQ(entries()[0], disabled);
    EXPECT_EQ(contentOf(root), before);
}

TEST_F(LibraryStoreDictionaryTest, OfTwoSuggestionsForOneTermTheFirstIsLearned)
{
    given(0);
    EXPECT_EQ(
        store->learnCorrections({ { "vesco", "Vesko", true }, { "Vesco", "other", true } }), 1U);
    ASSERT_EQ(entries().size(), 1U);
    EXPECT_EQ(entries()[0].replacement, "Vesko");
}

TEST_F(LibraryStoreDictionaryTest, NothingLearnedIsNothingWritten)
{
    given(1);
    const auto before = contentOf(root);
    EXPECT_EQ(store->learnCorrections({}), 0U);
    EXPECT_EQ(contentOf(root), before);
}

TEST_F(LibraryStoreDictionaryTest, LearnCorrectionsStopsAtAFullDictionary)
{
    given(999);
    EXPECT_EQ(store->learnCorrections(
                  { { "term 0", "x", true }, { "a", "x", true }, { "b", "x", true } }),
        1U);
    EXPECT_EQ(entries().size(), 1000U);
    EXPECT_EQ(entries().back().original, "a");
    const auto before = contentOf(root);
    EXPECT_EQ(store->learnCorrections({ { "c", "x", true } }), 0U);
    EXPECT_EQ(contentOf(root), before);
}

} // namespace
} // namespace vesko
