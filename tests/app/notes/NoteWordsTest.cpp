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

TEST(NoteWords, MomentsAreTimesWithTheirDayAsTheLocaleWritesIt)
{
    const QLocale english(QLocale::English, QLocale::UnitedKingdom);
    const auto noon = *Date::parse("2026-03-04T00:30:00Z");
    const auto moment = QDateTime::fromSecsSinceEpoch(1772584200); // wherever this runs
    const auto time = english.toString(moment.time(), QLocale::ShortFormat);
    const auto day = moment.date();
    EXPECT_EQ(shownMoment(noon, english, day), time);
    EXPECT_EQ(shownMoment(noon, english, day.addDays(1)), QStringLiteral("Yesterday ") + time);
    EXPECT_EQ(shownMoment(noon, english, day.addDays(30)),
        day.toString(QStringLiteral("dd/MM/yyyy ")) + time);
    EXPECT_TRUE(shownMoment(noon, QLocale(QLocale::German), day.addYears(1))
            .startsWith(day.toString(QStringLiteral("dd.MM.yy "))));
}

TEST(NoteWords, ARowTellsTheFirstWordsThatItsNameDoesNot)
{
    const struct {
        NoteKind kind;
        const char* title;
        const char* body;
        const char* shown;
    } rows[] = {
        { NoteKind::text, "", "first line\n\nsecond  line", "second line" },
        { NoteKind::text, "", "first line", "" },
        { NoteKind::text, "Given", " first\nline", "first line" },
        { NoteKind::dictation, "", "spoken <b>words</b>", "spoken <b>words</b>" },
        { NoteKind::dictation, "", "", "" },
    };
    for (const auto& [kind, title, body, shown] : rows) {
        Note note;
        note.kind = kind;
        note.title = title;
        note.body = body;
        EXPECT_EQ(shownWords(note).toStdString(), shown) << body;
    }
}

TEST(NoteWords, ASearchShowsTheWordsAroundItsFirstMatch)
{
    Note note;
    note.kind = NoteKind::dictation;
    note.body = "It begins with a long run of words, and then comes the Überfern which is sought.";
    TextSearch fern("fern", "en");
    EXPECT_EQ(shownWords(note, &fern), QStringLiteral("…then comes the Überfern which is sought."));
    EXPECT_EQ(marked(shownWords(note, &fern), fern),
        QStringLiteral("…then comes the Über<b>fern</b> which is sought."));
    TextSearch other("other", "en");
    EXPECT_TRUE(shownWords(note, &other).startsWith(QStringLiteral("It begins")));
    Recording recording;
    TranscriptionAttempt attempt;
    attempt.rawText = "what was heard had no other words";
    recording.attempts.push_back(attempt);
    note.recordings.push_back(recording);
    EXPECT_TRUE(shownWords(note, &other).contains(QStringLiteral("other words")));
}

TEST(NoteWords, WhatIsMarkedIsNoHtmlOfTheUsers)
{
    TextSearch search("b", "en");
    EXPECT_EQ(marked(QStringLiteral("<b> & B"), search),
        QStringLiteral("&lt;<b>b</b>&gt; &amp; <b>B</b>"));
}

TEST(NoteWords, CostsHaveSixDigits)
{
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    EXPECT_EQ(shownCost(0.000412, american), QStringLiteral("Reported cost: $0.000412"));
    EXPECT_EQ(shownCost(1.5, american), QStringLiteral("Reported cost: $1.500000"));
    EXPECT_EQ(shownCost(std::nullopt, american), QStringLiteral("Provider cost not reported"));
}

TEST(NoteWords, AModelIsShownAsPeopleWriteIt)
{
    const struct {
        const char* id;
        const char* shown;
    } rows[] = {
        { "openai/whisper-large-v3-turbo", "Whisper Large v3 Turbo" },
        { "openai/gpt-4o-transcribe", "GPT-4o Transcribe" },
        { "google/gemini-3.8-flash", "Gemini 3.8 Flash" },
        { "deepseek/deepseek-v4.1:free", "Deepseek v4.1 Free" },
        { "apple/on-device/de-DE", "Deutsch" },
        { "apple/on-device/xx-nowhere", "xx-nowhere" },
        { "--", "" },
        { "", "" },
    };
    for (const auto& [id, shown] : rows)
        EXPECT_EQ(shownModel(id).toStdString(), shown) << id;
}

} // namespace

} // namespace vesko
