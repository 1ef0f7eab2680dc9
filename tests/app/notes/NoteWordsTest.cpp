#include "VeskoApp/notes/NoteWords.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <vector>

namespace vesko {

namespace {

TEST(NoteWords, TheLastRecordingIsWhatTheListTells)
{
    const struct {
        std::vector<RecordingStatus> recordings;
        const char* said;
    } rows[] = {
        { {}, "" },
        { { RecordingStatus::recording }, "Recording" },
        { { RecordingStatus::recorded }, "Audio saved" },
        { { RecordingStatus::transcribing }, "Processing" },
        { { RecordingStatus::ready }, "" },
        { { RecordingStatus::failed }, "Audio saved" },
        { { RecordingStatus::interrupted }, "Audio saved" },
        { { RecordingStatus::failed, RecordingStatus::ready }, "" },
        { { RecordingStatus::ready, RecordingStatus::failed }, "Audio saved" },
    };
    for (const auto& row : rows) {
        Note note;
        for (const auto status : row.recordings) {
            note.recordings.emplace_back();
            note.recordings.back().status = status;
        }
        EXPECT_EQ(captureStatus(note).toStdString(), row.said);
    }
}

TEST(NoteWords, ATitleIsTheUsersOrThatOfTheKind)
{
    const struct {
        NoteKind kind;
        const char* title;
        const char* body;
        const char* shown;
    } rows[] = {
        { NoteKind::text, "", "", "Untitled note" },
        { NoteKind::text, "", "first line\nsecond", "first line" },
        { NoteKind::text, "Given", "first line", "Given" },
        { NoteKind::voice, "", "spoken", "Voice note" },
        { NoteKind::dictation, " ", "spoken", "Dictation" },
        { NoteKind::dictation, "Given", "spoken", "Given" },
    };
    for (const auto& row : rows) {
        Note note;
        note.kind = row.kind;
        note.title = row.title;
        note.body = row.body;
        EXPECT_EQ(shownTitle(note).toStdString(), row.shown);
    }
}

TEST(NoteWords, DurationsAreReadableAtAnyLength)
{
    const struct {
        double seconds;
        const char* shown;
    } rows[] = { { -1, "0:00" }, { 0, "0:00" }, { 0.99, "0:00" }, { 59.9, "0:59" }, { 60, "1:00" },
        { 300, "5:00" }, { 3599.9, "59:59" }, { 3600, "1:00:00" }, { 36061, "10:01:01" } };
    for (const auto& row : rows)
        EXPECT_EQ(shownDuration(row.seconds).toStdString(), row.shown) << row.seconds;
}

TEST(NoteWords, MomentsAreTimesDaysOrYears)
{
    const QLocale english(QLocale::English, QLocale::UnitedKingdom);
    const auto noon = *Date::parse("2026-03-04T00:30:00Z");
    const auto day = QDateTime::fromSecsSinceEpoch(1772584200).date(); // wherever this runs
    EXPECT_EQ(shownMoment(noon, english, day).size(), 5);
    EXPECT_EQ(shownMoment(noon, english, day.addDays(1)), QStringLiteral("Yesterday"));
    EXPECT_EQ(shownMoment(noon, english, day.addDays(30)),
        english.toString(day, QStringLiteral("d MMM")));
    EXPECT_EQ(shownMoment(noon, english, day.addYears(1)),
        english.toString(day, QStringLiteral("d MMM yyyy")));
}

TEST(NoteWords, CostsHaveSixDigits)
{
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(shownCost(0.000412, american), QStringLiteral("Reported cost: $0.000412"));
    EXPECT_EQ(shownCost(1.5, american), QStringLiteral("Reported cost: $1.500000"));
    EXPECT_EQ(shownCost(std::nullopt, american), QStringLiteral("Provider cost not reported"));
}

} // namespace

} // namespace vesko
