#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/Library.h"
#include "tests/core/library/Replaced.h"
#include "tests/fakes/Files.h"

#include <gtest/gtest.h>
#include <set>

namespace vesko {
namespace {

std::string document(const std::string& name)
{
    return bytesOf(std::filesystem::path(VESKO_TEST_DATA) / "library" / name);
}

std::string pretty(const Library& library)
{
    return JsonWriter::write(library, JsonWriter::Form::pretty);
}

Library read(const std::string& text)
{
    return JsonDocument(text).as<Library>();
}

std::string without(std::string text, const std::string& part)
{
    const auto at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return text.erase(at, part.size());
}

TEST(LibraryJson, ADocumentWithEveryFieldReadsAndWritesBackByteForByte)
{
    EXPECT_EQ(pretty(read(document("full.json"))), document("full.json"));
}

TEST(LibraryJson, ANewLibraryHasThreeEmptyArrays)
{
    EXPECT_EQ(pretty(Library()), document("empty.json"));
    EXPECT_EQ(read(document("empty.json")), Library());
}

TEST(LibraryJson, EveryFieldArrives)
{
    const auto library = read(document("full.json"));
    ASSERT_EQ(library.notes.size(), 3U);
    const auto& note = library.notes[0];
    EXPECT_EQ(note.id.text(), "20000000-0000-4000-8000-00000000000A");
    EXPECT_EQ(note.kind, NoteKind::dictation);
    EXPECT_EQ(note.title, "会議");
    using namespace std::string_literals;
    EXPECT_EQ(note.body, "First line\n\n\"Quoted\" 50/50 \\ tab\tend 😀\0\x1f\b\f\r"s);
    EXPECT_EQ(note.projectID, library.projects[0].id);
    EXPECT_EQ(note.createdAt.text(), "2026-02-03T04:05:06Z");
    EXPECT_EQ(note.updatedAt.text(), "2026-02-03T04:06:00Z");
    EXPECT_EQ(note.deletedAt, Date::parse("2026-02-05T00:00:00Z"));
    const auto& recording = note.recordings.at(0);
    EXPECT_EQ(recording.noteID, note.id);
    EXPECT_EQ(recording.fileName, Recording::fileNameFor(recording.id));
    EXPECT_EQ(recording.duration, 12.5);
    EXPECT_EQ(recording.status, RecordingStatus::failed);
    EXPECT_TRUE(recording.appendedToNote);
    EXPECT_EQ(recording.appliedBodyRevision, note.updatedAt);
    EXPECT_EQ(
        recording.errorMessage, "The provider is busy or its limit was reached. Try again later.");
    const auto& attempt = recording.attempts.at(0);
    EXPECT_EQ(attempt.provider, "OpenRouter");
    EXPECT_EQ(attempt.model, "openai/whisper-large-v3-turbo");
    EXPECT_EQ(attempt.cleanupModel, "xiaomi/mimo-v2.6-pro");
    EXPECT_EQ(attempt.startedAt.text(), "2026-02-03T04:05:50Z");
    EXPECT_EQ(attempt.completedAt, Date::parse("2026-02-03T04:05:58Z"));
    EXPECT_EQ(attempt.status, AttemptStatus::ready);
    EXPECT_EQ(attempt.rawText, "first line");
    EXPECT_EQ(attempt.text, "First line");
    EXPECT_EQ(attempt.cost, 0.000125);
    EXPECT_EQ(attempt.requestID, "gen-1");
    EXPECT_EQ(attempt.errorMessage, "The text was not cleaned up.");
    const auto& bare = recording.attempts.at(1);
    EXPECT_EQ(bare.cleanupModel, std::nullopt);
    EXPECT_EQ(bare.completedAt, std::nullopt);
    EXPECT_EQ(bare.cost, std::nullopt);
    EXPECT_EQ(library.notes[1].projectID, std::nullopt);
    EXPECT_EQ(library.notes[1].deletedAt, std::nullopt);
    EXPECT_EQ(library.notes[1].kind, NoteKind::voice);
    EXPECT_EQ(library.notes[2].kind, NoteKind::text);
    ASSERT_EQ(library.dictionary.size(), 3U);
    EXPECT_FALSE(library.dictionary[0].enabled);
    EXPECT_EQ(library.dictionary[0].original, "ves go");
    EXPECT_EQ(library.dictionary[1].replacement, "and/or");
    EXPECT_EQ(library.dictionary[1].source, DictionaryEntry::Source::learned);
    EXPECT_EQ(library.projects[0].name, "Work");
}

TEST(LibraryJson, OnlyTheDictionaryMayBeMissingAndIsWrittenAgain)
{
    const auto empty = document("empty.json");
    const std::string dictionary = "  \"dictionary\" : [\n\n  ],\n";
    EXPECT_EQ(pretty(read(without(empty, dictionary))), empty);
    EXPECT_THROW(read(without(empty, "  \"notes\" : [\n\n  ],\n")), JsonError);
    EXPECT_THROW(read(without(empty, "  \"projects\" : [\n\n  ],\n")), JsonError);
}

// Takes one line out of the document that has everything, and sees whether that is missed.
TEST(LibraryJson, EveryOtherKeyOfEveryRecordIsRequiredUnlessOptional)
{
    const std::set<std::string> optional{ "deletedAt", "projectID", "appliedBodyRevision",
        "errorMessage", "cleanupModel", "completedAt", "cost", "rawText", "requestID", "text" };
    const auto full = document("full.json");
    int lines = 0;
    for (std::size_t begin = 0; begin < full.size();) {
        const auto end = std::min(full.find('\n', begin), full.size() - 1) + 1;
        const auto line = full.substr(begin, end - begin);
        const auto key = line.substr(0, line.find(" : "));
        const auto name = key.find('"') == std::string::npos
            ? ""
            : key.substr(key.find('"') + 1, key.rfind('"') - key.find('"') - 1);
        const bool last = !line.ends_with(",\n");
        if (!name.empty() && !line.ends_with("[\n")) {
            auto text = full;
            // The last key of an object takes the comma before it along.
            const auto from = last ? text.rfind(',', begin) : begin;
            text.erase(from, (last ? end - 1 : end) - from);
            if (optional.contains(name))
                EXPECT_NO_THROW(read(text)) << line;
            else
                EXPECT_THROW(read(text), JsonError) << line;
            ++lines;
        }
        begin = end;
    }
    EXPECT_EQ(lines, 3 * 6 + 8 + 9 + 12 + 5 + 6 + 7 + 6 + 3 + 1);
}

TEST(LibraryJson, EveryRawTextIsItsEnumeratorInOrder)
{
    const auto full = document("full.json");
    for (const std::string kind : { "dictation", "voice", "text" })
        EXPECT_EQ(read(replaced(full, "\"dictation\"", '"' + kind + '"')).notes[0].kind,
            kind == "dictation"   ? NoteKind::dictation
                : kind == "voice" ? NoteKind::voice
                                  : NoteKind::text);
    const std::pair<std::string, RecordingStatus> recordings[] = {
        { "recording", RecordingStatus::recording },
        { "recorded", RecordingStatus::recorded },
        { "transcribing", RecordingStatus::transcribing },
        { "ready", RecordingStatus::ready },
        { "failed", RecordingStatus::failed },
        { "interrupted", RecordingStatus::interrupted },
    };
    for (const auto& [raw, status] : recordings) {
        const auto text = replaced(full, "\"recorded\"", '"' + raw + '"');
        EXPECT_EQ(read(text).notes[1].recordings[0].status, status);
        EXPECT_EQ(pretty(read(text)), text);
    }
    const std::pair<std::string, AttemptStatus> attempts[] = {
        { "running", AttemptStatus::running },
        { "ready", AttemptStatus::ready },
        { "failed", AttemptStatus::failed },
        { "interrupted", AttemptStatus::interrupted },
    };
    for (const auto& [raw, status] : attempts) {
        const auto text = replaced(full, "\"ready\"", '"' + raw + '"');
        EXPECT_EQ(read(text).notes[0].recordings[0].attempts[0].status, status);
        EXPECT_EQ(pretty(read(text)), text);
    }
    for (const std::string raw : { "\"dictation\"", "\"recorded\"", "\"ready\"", "\"manual\"" })
        EXPECT_THROW(read(replaced(full, raw, "\"other\"")), JsonError) << raw;
}

TEST(LibraryJson, ADateLosesItsFractionInTheFile)
{
    const auto whole = *Date::parse("2026-11-21T10:52:00Z");
    Library library;
    Note first, second;
    first.createdAt = { whole.time + std::chrono::milliseconds(1) };
    second.createdAt = { whole.time + std::chrono::milliseconds(999) };
    library.notes = { first, second };
    const auto back = read(pretty(library));
    EXPECT_EQ(back.notes[0].createdAt, whole);
    EXPECT_EQ(back.notes[0].createdAt, back.notes[1].createdAt);
}

} // namespace
} // namespace vesko
