#include "VeskoCore/library/Recording.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(RecordingStatus, HasALabel)
{
    const std::pair<RecordingStatus, std::string> table[] = {
        { RecordingStatus::recording, "Recording" },
        { RecordingStatus::recorded, "Audio saved" },
        { RecordingStatus::transcribing, "Transcribing" },
        { RecordingStatus::ready, "Transcribed" },
        { RecordingStatus::failed, "Failed" },
        { RecordingStatus::interrupted, "Interrupted" },
    };
    for (const auto& [status, expected] : table)
        EXPECT_EQ(label(status), expected);
}

TEST(AttemptStatus, HasALabel)
{
    const std::pair<AttemptStatus, std::string> table[] = {
        { AttemptStatus::running, "In progress" },
        { AttemptStatus::ready, "Done" },
        { AttemptStatus::failed, "Failed" },
        { AttemptStatus::interrupted, "Interrupted" },
    };
    for (const auto& [status, expected] : table)
        EXPECT_EQ(label(status), expected);
}

TEST(Recording, BeginsWithoutAudio)
{
    const auto id = *Uuid::parse("0123abcd-4567-89ef-abcd-ef0123456789");
    const auto noteID = Uuid::random();
    const auto now = *Date::parse("2026-11-21T10:52:00Z");
    const auto recording = Recording::make(id, noteID, now);

    Recording expected;
    expected.id = id;
    expected.noteID = noteID;
    expected.fileName = "0123ABCD-4567-89EF-ABCD-EF0123456789.m4a";
    expected.createdAt = now;
    EXPECT_EQ(recording, expected);
    EXPECT_EQ(recording.duration, 0);
    EXPECT_EQ(recording.status, RecordingStatus::recording);
    EXPECT_FALSE(recording.appendedToNote);
    EXPECT_EQ(recording.appliedBodyRevision, std::nullopt);
    EXPECT_EQ(recording.errorMessage, std::nullopt);
}

TEST(Recording, LatestTextIsThatOfTheNewestAttemptThatHasOne)
{
    const auto attempt = [](AttemptStatus status, std::optional<std::string> text) {
        TranscriptionAttempt attempt;
        attempt.status = status;
        attempt.text = std::move(text);
        return attempt;
    };
    struct Case {
        const char* name;
        std::vector<TranscriptionAttempt> attempts;
        std::optional<std::string> expected;
    };
    const Case table[] = {
        { "no attempts", {}, std::nullopt },
        { "no text anywhere", { attempt(AttemptStatus::failed, {}) }, std::nullopt },
        { "ready, then failed",
            { attempt(AttemptStatus::ready, "a"), attempt(AttemptStatus::failed, {}) }, "a" },
        { "two texts", { attempt(AttemptStatus::ready, "a"), attempt(AttemptStatus::ready, "b") },
            "b" },
        { "a failed one with a text counts",
            { attempt(AttemptStatus::ready, "a"), attempt(AttemptStatus::failed, "b") }, "b" },
        { "an empty text is a text",
            { attempt(AttemptStatus::ready, "a"), attempt(AttemptStatus::ready, "") }, "" },
    };
    for (const auto& [name, attempts, expected] : table) {
        Recording recording;
        recording.attempts = attempts;
        EXPECT_EQ(recording.latestText(), expected) << name;
    }
}

} // namespace
} // namespace vesko
