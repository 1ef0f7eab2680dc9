#include "VeskoCore/library/Note.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TranscriptionAttempt attempt(const std::string& model, std::optional<std::string> rawText)
{
    TranscriptionAttempt attempt;
    attempt.model = model;
    attempt.rawText = std::move(rawText);
    attempt.text = "final text";
    return attempt;
}

TEST(NoteMarkdown, IsTitleAndBodyAsTheyStand)
{
    Note note;
    note.title = " A *title* ";
    note.body = " # body\n\n";
    EXPECT_EQ(note.markdown(std::nullopt), "# A *title*\n\n # body\n\n\n");
}

TEST(NoteMarkdown, NamesTheProject)
{
    Note note;
    note.title = "A";
    EXPECT_EQ(note.markdown("Work"), "# A\n\nProject: Work\n\n\n");
    EXPECT_EQ(note.markdown(""), "# A\n\nProject: \n\n\n");
}

TEST(NoteMarkdown, OfANoteWithoutATitleOpensWithTheTitleOnDisplay)
{
    Note note;
    EXPECT_EQ(note.markdown(std::nullopt), "# Untitled note\n\n\n");
    note.kind = NoteKind::voice;
    note.body = "first\nsecond";
    EXPECT_EQ(note.markdown(std::nullopt), "# first\n\nfirst\nsecond\n");
}

TEST(NoteMarkdown, HoldsEveryRawTranscriptWhateverBecameOfIt)
{
    Note note;
    note.title = "A";
    note.body = "B";
    Recording first, second;
    first.attempts
        = { attempt("whisper", "one"), attempt("other", std::nullopt), attempt("parrot", "") };
    first.attempts[0].status = AttemptStatus::failed;
    second.attempts = { attempt("whisper", "two\n") };
    note.recordings = { first, Recording(), second };
    EXPECT_EQ(note.markdown(std::nullopt),
        "# A\n\nB\n"
        "\n## Original transcript (whisper)\n\none\n"
        "\n## Original transcript (parrot)\n\n\n"
        "\n## Original transcript (whisper)\n\ntwo\n\n");
}

TEST(NoteMarkdown, NamesAnEngineInWords)
{
    Note note;
    note.title = "A";
    Recording recording;
    recording.attempts = { attempt("whisper.cpp/base", "one") };
    recording.attempts[0].provider = onDeviceProvider;
    note.recordings = { recording };
    EXPECT_EQ(note.markdown(std::nullopt),
        "# A\n\n\n\n## Original transcript (whisper.cpp, base)\n\none\n");
}

} // namespace
} // namespace vesko
