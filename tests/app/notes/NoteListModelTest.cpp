#include "VeskoApp/notes/NoteListModel.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <map>

namespace vesko {

namespace {

// Notes of one letter each, as the titles say; the same letter is always the same note.
SharedArray<Note> notes(const std::string& letters, const std::string& changed = {})
{
    static std::map<char, std::shared_ptr<const Note>> known;
    std::vector<std::shared_ptr<const Note>> made;
    for (const char letter : letters) {
        auto& shared = known[letter];
        if (!shared) {
            Note note;
            note.id = Uuid::random();
            note.title = letter;
            shared = std::make_shared<const Note>(note);
        }
        auto current = shared;
        if (changed.contains(letter)) {
            Note note = *shared;
            note.body = "changed";
            current = std::make_shared<const Note>(note);
        }
        made.push_back(current);
    }
    return SharedArray<Note>(std::move(made));
}

std::string shown(const NoteListModel& model)
{
    std::string letters;
    for (int row = 0; row < model.rowCount(); ++row)
        letters += model.data(model.index(row), NoteListModel::titleRole).toString().toStdString();
    return letters;
}

TEST(NoteListModel, TellsOfNoMoreRowsThanItHasTo)
{
    const struct {
        const char* what;
        const char* before;
        const char* after;
        const char* changed;
        std::string told; // +first-last, -first-last, >from-to, ~first-last, ! for all of them
    } rows[] = {
        { "nothing changes", "abc", "abc", "", "" },
        { "the first notes", "", "abc", "", "!" },
        { "the last notes go", "abc", "", "", "!" },
        { "a new note comes first", "abc", "xabc", "", "+0-0" },
        { "a note goes", "abcd", "acd", "", "-1-1" },
        { "the edited note was first", "abc", "abc", "a", "~0-0" },
        { "the edited note comes first", "abcd", "cabd", "c", ">2-0 ~0-2" },
        { "a note changes behind a new one", "abc", "xabc", "b", "+0-0 ~2-2" },
        { "another project", "abcd", "xy", "", "-0-3 +0-1" },
        { "a search finds the middle", "abcde", "bd", "", "-0-4 +0-1" },
        { "two rows change places", "abcd", "acbd", "", ">2-1 ~1-2" },
    };
    for (const auto& row : rows) {
        NoteListModel model;
        const QAbstractItemModelTester tester(&model);
        model.setNotes(notes(row.before));
        std::string told;
        const auto say = [&](char what, int first, int last) {
            told += (told.empty() ? "" : " ") + std::string(1, what) + std::to_string(first) + "-"
                + std::to_string(last);
        };
        using Model = QAbstractItemModel;
        QObject::connect(&model, &Model::rowsInserted,
            [&](const QModelIndex&, int first, int last) { say('+', first, last); });
        QObject::connect(&model, &Model::rowsRemoved,
            [&](const QModelIndex&, int first, int last) { say('-', first, last); });
        QObject::connect(&model, &Model::rowsMoved,
            [&](const QModelIndex&, int first, int, const QModelIndex&, int to) {
                say('>', first, to);
            });
        QObject::connect(
            &model, &Model::dataChanged, [&](const QModelIndex& first, const QModelIndex& last) {
                say('~', first.row(), last.row());
            });
        QObject::connect(&model, &Model::modelReset, [&] { told += "!"; });
        model.setNotes(notes(row.after, row.changed));
        EXPECT_EQ(shown(model), row.after) << row.what;
        EXPECT_EQ(told, row.told) << row.what;
    }
}

TEST(NoteListModel, FindsTheRowOfANote)
{
    NoteListModel model;
    model.setNotes(notes("abc"));
    EXPECT_EQ(model.rowOf(model.notes()[1].id), 1);
    EXPECT_EQ(model.rowOf(Uuid::random()), -1);
}

TEST(NoteListModel, SaysOfARowWhatItIsAbout)
{
    Note note;
    note.kind = NoteKind::voice;
    note.updatedAt = *Date::parse("2001-02-03T10:00:00Z");
    Recording recording;
    recording.status = RecordingStatus::failed;
    note.recordings.push_back(recording);
    NoteListModel model;
    model.setNotes({ note });
    const auto said
        = [&](int role) { return model.data(model.index(0), role).toString().toStdString(); };
    EXPECT_EQ(said(NoteListModel::idRole), note.id.text());
    EXPECT_EQ(said(NoteListModel::titleRole), "Voice note");
    EXPECT_EQ(said(NoteListModel::iconRole), "waveform");
    const auto moment = said(NoteListModel::momentRole);
    EXPECT_EQ(said(NoteListModel::detailRole), "Audio saved · " + moment);
    note.kind = NoteKind::text;
    note.recordings.clear();
    model.setNotes({ note });
    EXPECT_EQ(said(NoteListModel::iconRole), "text");
    EXPECT_EQ(said(NoteListModel::detailRole), moment);
    note.title = "Ferns";
    note.body = "They like shade";
    note.projectID = Uuid::random();
    model.setNotes({ note });
    EXPECT_EQ(said(NoteListModel::projectRole), "");
    model.setProjects({ { *note.projectID, QStringLiteral("Garden") } });
    EXPECT_EQ(said(NoteListModel::projectRole), "Garden");
    EXPECT_EQ(said(NoteListModel::detailRole), moment + " · They like shade · Garden");
}

TEST(NoteListModel, MarksWhatIsSearchedForInEachRow)
{
    Note note;
    note.title = "Ferns & co";
    note.body = "Each fern likes shade";
    NoteListModel model;
    model.setNotes({ note });
    const auto said
        = [&](int role) { return model.data(model.index(0), role).toString().toStdString(); };
    int told = 0;
    QObject::connect(&model, &QAbstractItemModel::dataChanged, [&] { ++told; });
    EXPECT_EQ(said(NoteListModel::markedTitleRole), "Ferns &amp; co");
    model.setQuery("fern");
    EXPECT_EQ(said(NoteListModel::markedTitleRole), "<b>Fern</b>s &amp; co");
    EXPECT_EQ(said(NoteListModel::markedWordsRole), "Each <b>fern</b> likes shade");
    model.setQuery("fern");
    EXPECT_EQ(told, 1);
    model.setQuery("");
    EXPECT_EQ(said(NoteListModel::markedWordsRole), "Each fern likes shade");
}

} // namespace

} // namespace vesko
