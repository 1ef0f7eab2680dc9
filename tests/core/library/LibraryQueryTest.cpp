#include "VeskoCore/library/Library.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

namespace vesko {
namespace {

using namespace std::chrono_literals;
using Titles = std::vector<std::string>;

Note noteWith(const std::string& title, std::chrono::seconds updated)
{
    Note note;
    note.id = Uuid::random();
    note.title = title;
    note.updatedAt.time += updated;
    return note;
}

Titles titles(const SharedArray<Note>& notes)
{
    Titles all;
    for (const auto& note : notes)
        all.push_back(note.title);
    return all;
}

TEST(LibraryQuery, OfAnEmptyLibraryIsEmpty)
{
    EXPECT_TRUE(Library().filtered(std::nullopt, "", false).empty());
    EXPECT_TRUE(Library().filtered(Uuid::random(), "x", true).empty());
}

TEST(LibraryQuery, ListsTheNewestChangeFirstAndElseAsInTheLibrary)
{
    Library library;
    library.notes = { noteWith("a", 1s), noteWith("b", 3s), noteWith("c", 2s), noteWith("d", 3s),
        noteWith("e", 1s), noteWith("f", 3s) };
    EXPECT_EQ(titles(library.filtered(std::nullopt, "", false)),
        (Titles{ "b", "d", "f", "c", "a", "e" }));
}

TEST(LibraryQuery, KeepsTrashAndProjectsApart)
{
    const auto work = Uuid::random(), home = Uuid::random();
    Library library;
    for (const bool trash : { false, true })
        for (const auto& project :
            { std::optional(work), std::optional(home), std::optional<Uuid>() }) {
            auto note = noteWith(std::string(trash ? "trashed" : "kept")
                    + (project == work        ? " work"
                            : project == home ? " home"
                                              : ""),
                0s);
            note.projectID = project;
            if (trash)
                note.deletedAt = note.updatedAt;
            library.notes.append(note);
        }
    EXPECT_EQ(titles(library.filtered(std::nullopt, "", false)),
        (Titles{ "kept work", "kept home", "kept" }));
    EXPECT_EQ(titles(library.filtered(std::nullopt, "", true)),
        (Titles{ "trashed work", "trashed home", "trashed" }));
    EXPECT_EQ(titles(library.filtered(work, "", false)), Titles{ "kept work" });
    EXPECT_EQ(titles(library.filtered(work, "", true)), Titles{ "trashed work" });
    EXPECT_EQ(titles(library.filtered(work, "HOME", false)), Titles{});
    EXPECT_EQ(titles(library.filtered(home, "HOME", true)), Titles{ "trashed home" });
    EXPECT_EQ(titles(library.filtered(Uuid::random(), "", false)), Titles{});
}

TEST(LibraryQuery, LooksIntoTitleBodyAndRawTranscripts)
{
    auto title = noteWith("Café", 4s), body = noteWith("body", 3s), heard = noteWith("heard", 2s),
         final = noteWith("final", 1s);
    body.body = "At the CAFE.";
    TranscriptionAttempt failed, ready;
    failed.status = AttemptStatus::failed;
    failed.rawText = "in the cafe\u0301";
    ready.rawText = "in the tavern";
    ready.text = "In the pub.";
    heard.recordings = { Recording(), Recording() };
    heard.recordings[1].attempts = { TranscriptionAttempt(), failed, ready };
    final.recordings = { Recording() };
    final.recordings[0].attempts = { ready };
    Library library;
    library.notes = { title, body, heard, final };
    const auto found
        = [&](const char* query) { return titles(library.filtered(std::nullopt, query, false)); };
    EXPECT_EQ(found("cafe"), (Titles{ "Café", "body", "heard" }));
    EXPECT_EQ(found("CAFÉ"), (Titles{ "Café", "body", "heard" }));
    EXPECT_EQ(found("tavern"), (Titles{ "heard", "final" }));
    EXPECT_EQ(found("pub"), Titles{}) << "the final text is found in the body, if it went there";
    EXPECT_EQ(found("caféx"), Titles{});
}

TEST(LibraryQuery, FindsInATranscriptWhatItsPlaceInTheBodyHides)
{
    auto note = noteWith("", 0s);
    TranscriptionAttempt attempt;
    attempt.rawText = "\u1112"; // a consonant, which the vowel behind it makes a syllable
    note.recordings = { Recording() };
    note.recordings[0].attempts = { attempt };
    for (const auto* body : { "\u1112\u1161", "\u1112", "\u1112\n\nmore", "" }) {
        note.body = body;
        Library library;
        library.notes = { note };
        EXPECT_EQ(library.filtered(std::nullopt, "\u1112", false).size(), 1U) << body;
    }
}

TEST(LibraryQuery, TakesTheQueryAsItIsGiven)
{
    Library library;
    library.notes = { noteWith("one", 0s), noteWith("two words", 0s) };
    EXPECT_EQ(titles(library.filtered(std::nullopt, " ", false)), Titles{ "two words" });
    EXPECT_EQ(titles(library.filtered(std::nullopt, "one ", false)), Titles{});
}

TEST(LibraryQuery, ComparesInTheWayOfTheCurrentLocale)
{
    Library library;
    library.notes = { noteWith("ISPARTA", 0s) };
    const auto before = icu::Locale::getDefault();
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale("tr_TR"), status);
    EXPECT_EQ(library.filtered(std::nullopt, "ısparta", false).size(), 1U);
    EXPECT_EQ(library.filtered(std::nullopt, "isparta", false).size(), 0U);
    icu::Locale::setDefault(before, status);
    EXPECT_EQ(library.filtered(std::nullopt, "isparta", false).size(), 1U);
}

TEST(LibraryQuery, FindsAnEditAtOnceAndSharesTheNotes)
{
    Library library;
    library.notes = { noteWith("before", 0s) };
    EXPECT_EQ(library.filtered(std::nullopt, "before", false).shared(0), library.notes.shared(0));
    library.notes.edit(0, [](Note& note) { note.title = "after"; });
    EXPECT_EQ(library.filtered(std::nullopt, "before", false).size(), 0U);
    EXPECT_EQ(library.filtered(std::nullopt, "after", false).size(), 1U);
}

TEST(LibraryQuery, FindsATermByEitherSide)
{
    Library library;
    for (const auto& [original, replacement] :
        { std::pair("tallki", "Vesko"), std::pair("café", "coffee"), std::pair("vesco", "it") }) {
        DictionaryEntry term;
        term.original = original;
        term.replacement = replacement;
        library.dictionary.append(term);
    }
    const auto originals = [&](std::string_view query) {
        Titles all;
        for (const auto& term : library.terms(query))
            all.push_back(term.original);
        return all;
    };
    EXPECT_EQ(originals(""), (Titles{ "tallki", "café", "vesco" }));
    EXPECT_EQ(originals("VES"), (Titles{ "tallki", "vesco" }));
    EXPECT_EQ(originals("vesko"), Titles{ "tallki" });
    EXPECT_EQ(originals("cafe"), Titles{ "café" });
    EXPECT_EQ(originals("zebra"), Titles{});
}

} // namespace
} // namespace vesko
