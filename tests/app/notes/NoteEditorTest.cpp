// A note being edited: nothing typed is lost, and no transcript is.

#include "VeskoApp/notes/NoteEditor.h"
#include "tests/app/library/LibraryTest.h"

#include <QTextCursor>

namespace vesko {

namespace {

class NoteEditorTest : public LibraryTest {
protected:
    // The program runs, with an editor of a note with this body.
    void edit(const std::string& body)
    {
        open();
        id = write("", body);
        openEditor();
    }
    void openEditor()
    {
        document.setPlainText({});
        editor = std::make_unique<NoteEditor>(
            model->edits(), model->library(), machine.clock, note(id));
        editor->attach(document);
        QObject::connect(&model->library(), &LibrarySession::changed, editor.get(),
            [this] { editor->refresh(note(id)); });
    }
    void type(const char* text)
    {
        QTextCursor cursor(&document);
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(QString::fromUtf8(text));
    }
    [[nodiscard]] bool saved()
    {
        return eventually([&] { return editor->saved(); });
    }
    // A letter or more is typed into the note while "heard", from a recording for it, is on its
    // way.
    void typeBeforeWordsLand(const char* text)
    {
        model->selection().setSelectedNoteID(id);
        machine.clock.turn(1);
        model->capture().recordNote(true);
        ASSERT_TRUE(reach(Phase::recording));
        machine.recognizer.hears.reset();
        model->capture().recordNote(true);
        ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
        type(text);
        machine.recognizer.report({ .text = "heard", .isFinal = true });
        ASSERT_TRUE(reach(Phase::idle));
    }
    std::string shown() const
    {
        auto text = document.toRawText();
        text.replace(QChar::ParagraphSeparator, u'\n');
        return text.toStdString();
    }

    Uuid id;
    QTextDocument document;
    std::unique_ptr<NoteEditor> editor; // ends before the model
};

TEST_F(NoteEditorTest, WhatIsTypedIsPendingAtOnceAndSavedSoon)
{
    edit("begun");
    EXPECT_FALSE(editor->saved());
    EXPECT_EQ(machine.clock.armed(), 0U);
    type(" and");
    EXPECT_TRUE(editor->dirty());
    EXPECT_EQ(
        model->edits().pending().at(id), (NoteEdits::PendingEdit{ "", "begun and", "begun" }));
    machine.clock.turn(0.349);
    drainEvents();
    EXPECT_EQ(note(id).body, "begun");
    machine.clock.turn(0.002);
    ASSERT_TRUE(saved());
    EXPECT_FALSE(editor->dirty());
    EXPECT_EQ(note(id).body, "begun and");
    EXPECT_TRUE(model->edits().pending().empty());
    type(" more");
    EXPECT_FALSE(editor->saved());
}

TEST_F(NoteEditorTest, WhoWritesWithoutAPauseIsSavedAllTheSame)
{
    edit("");
    std::string typed;
    for (int save = 0; save < 3; ++save) {
        for (int letter = 0; letter < 4; ++letter) {
            EXPECT_EQ(note(id).body.size(), 4U * save);
            type("x");
            typed += "x";
            machine.clock.turn(0.1);
        }
        ASSERT_TRUE(saved());
        EXPECT_EQ(note(id).body, typed);
    }
}

TEST_F(NoteEditorTest, TypingDuringASaveIsSavedAsSoonAsOtherTyping)
{
    edit("");
    type("a");
    machine.clock.turn(0.36); // the save is under way
    type("b");
    ASSERT_TRUE(eventually([&] { return note(id).body == "a"; }));
    EXPECT_TRUE(editor->dirty());
    EXPECT_EQ(model->edits().pending().at(id).body, "ab");
    machine.clock.turn(0.36);
    ASSERT_TRUE(saved());
    EXPECT_EQ(note(id).body, "ab");
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(NoteEditorTest, TypingDuringALongSaveIsSavedAsSoonAsItHasEnded)
{
    edit("");
    std::vector<std::string> bodies;
    QObject::connect(&model->library(), &LibrarySession::changed, [&] {
        if (bodies.empty() || bodies.back() != note(id).body)
            bodies.push_back(note(id).body);
    });
    type("a");
    machine.clock.turn(0.36); // the save is under way
    type("b");
    machine.clock.turn(0.36);
    ASSERT_TRUE(saved());
    EXPECT_THAT(bodies, testing::ElementsAre("a", "ab"));
    EXPECT_EQ(shown(), "ab");
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(NoteEditorTest, TheTitleIsSavedWithTheText)
{
    edit("text");
    editor->setTitle(QStringLiteral("Название"));
    editor->setTitle(QStringLiteral("Название"));
    machine.clock.turn(0.36);
    ASSERT_TRUE(saved());
    EXPECT_EQ(note(id).title, "Название");
    EXPECT_EQ(note(id).body, "text");
}

TEST_F(NoteEditorTest, ATranscriptThatLandsWhileCleanShowsAtOnce)
{
    edit("begun");
    hear(id, "and heard");
    EXPECT_EQ(shown(), "begun\n\nand heard");
    EXPECT_FALSE(editor->dirty());
    EXPECT_FALSE(editor->saved()); // an edit that nobody made
    type("!");
    EXPECT_EQ(model->edits().pending().at(id).baseBody, "begun\n\nand heard");
}

TEST_F(NoteEditorTest, ATranscriptThatLandsWhileDirtyShowsWithTheSave)
{
    edit("begun");
    ASSERT_NO_FATAL_FAILURE(typeBeforeWordsLand(" typed"));
    EXPECT_EQ(note(id).body, "begun\n\nheard");
    EXPECT_EQ(shown(), "begun typed");
    machine.clock.turn(1);
    ASSERT_TRUE(saved());
    EXPECT_EQ(note(id).body, "begun typed\n\nheard");
    EXPECT_EQ(shown(), "begun typed\n\nheard");
}

// The first of several saves joined the transcript to the note, and the next one, of an editor that
// had not seen it, took it away again.
TEST_F(NoteEditorTest, ATranscriptThatLandsWhileSomebodyWritesOnIsNotLost)
{
    for (const bool closes : { false, true }) {
        editor.reset();
        model.reset();
        std::filesystem::remove_all(root());
        edit("begun");
        ASSERT_NO_FATAL_FAILURE(typeBeforeWordsLand("1"));
        machine.clock.turn(0.36); // a save is under way
        type("2");
        ASSERT_TRUE(eventually([&] { return note(id).body == "begun1\n\nheard"; }));
        type("3");
        if (closes)
            editor.reset();
        else
            machine.clock.turn(0.36);
        ASSERT_TRUE(eventually([&] { return note(id).body == "begun123\n\nheard"; }));
        if (!closes) {
            ASSERT_TRUE(saved());
            EXPECT_EQ(shown(), "begun123\n\nheard");
        }
    }
}

TEST_F(NoteEditorTest, ATranscriptThatLandsBetweenTwoSavesIsNotLost)
{
    edit("begun");
    type("1");
    machine.clock.turn(0.36); // a save is under way
    type("2");
    ASSERT_TRUE(eventually([&] { return note(id).body == "begun1"; }));
    hear(id, "heard"); // which turns the clock: the next save is made as well
    ASSERT_TRUE(eventually([&] { return note(id).body == "begun12\n\nheard"; }));
}

TEST_F(NoteEditorTest, AMergeIsOneStepAndLeavesTheUsersOwnStepsAndCaret)
{
    edit("one two");
    type(" three");
    QTextCursor caret(&document);
    caret.setPosition(4);
    machine.clock.turn(1);
    ASSERT_TRUE(saved());
    machine.clock.turn(1);
    std::vector<int> merges;
    QObject::connect(editor.get(), &NoteEditor::merging, [&](int at) { merges.push_back(at); });
    hear(id, "four");
    EXPECT_EQ(shown(), "one two three\n\nfour");
    EXPECT_EQ(merges, std::vector{ 13 });
    EXPECT_EQ(caret.position(), 4);
    document.undo();
    EXPECT_EQ(shown(), "one two three");
    EXPECT_TRUE(editor->dirty());
    document.undo();
    EXPECT_EQ(shown(), "one two");
    document.redo();
    document.redo();
    EXPECT_EQ(shown(), "one two three\n\nfour");
}

TEST_F(NoteEditorTest, AMergeNeverCutsACharacterInTwo)
{
    edit("😀");
    machine.clock.turn(1);
    awaited(savedEdit(id, { "", "😁", "😀" })); // they differ in their second half
    EXPECT_EQ(shown(), "😁");
    awaited(savedEdit(id, { "", "x𐀁", "" }));
    awaited(savedEdit(id, { "", "x𐐁", "" })); // these in their first
    EXPECT_EQ(shown(), "x𐐁");
}

TEST_F(NoteEditorTest, LineEndsOfEveryKindAreShownAndNothingIsChangedByIt)
{
    edit("a\r\nb\rc\xc2\xa0"
         "d");
    EXPECT_EQ(shown(),
        "a\nb\nc\xc2\xa0"
        "d");
    EXPECT_FALSE(editor->dirty());
    type("!");
    machine.clock.turn(1);
    ASSERT_TRUE(saved());
    EXPECT_EQ(note(id).body,
        "a\nb\nc\xc2\xa0"
        "d!"); // the no-break space is still one
}

TEST_F(NoteEditorTest, TheEndOfTheEditorSavesWhatItHolds)
{
    edit("begun");
    type(" and left");
    editor.reset();
    ASSERT_TRUE(eventually([&] { return note(id).body == "begun and left"; }));
    drainEvents();
    EXPECT_TRUE(model->edits().pending().empty());
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(NoteEditorTest, TheEndOfTheEditorUnderASaveLosesNothing)
{
    edit("begun");
    type(" one");
    machine.clock.turn(0.36);
    type(" two");
    editor.reset();
    ASSERT_TRUE(eventually([&] { return note(id).body == "begun one two"; }));
}

TEST_F(NoteEditorTest, ACleanEditorEndsWithoutASave)
{
    edit("begun");
    const auto before = note(id).updatedAt;
    machine.clock.turn(1);
    editor.reset();
    drainEvents();
    EXPECT_EQ(note(id).updatedAt, before);
}

TEST_F(NoteEditorTest, AFailingDiskLosesNothingAndSaysSo)
{
    edit("begun");
    type(" typed");
    breakStore();
    machine.clock.turn(1);
    ASSERT_TRUE(eventually([&] { return model->status().errorMessage() == storageFailed; }));
    drainEvents();
    EXPECT_FALSE(editor->saved());
    EXPECT_TRUE(editor->dirty());
    EXPECT_EQ(shown(), "begun typed");

    // Another note is looked at and this one again: what was typed is still there.
    editor.reset();
    ASSERT_TRUE(eventually([&] { return machine.clock.armed() == 0; }));
    drainEvents();
    openEditor();
    EXPECT_EQ(shown(), "begun typed");
    type(" and more");
    repairStore();
    machine.clock.turn(1);
    ASSERT_TRUE(saved());
    EXPECT_EQ(note(id).body, "begun typed and more");
}

TEST_F(NoteEditorTest, ANoteInTheTrashIsNotEdited)
{
    edit("begun");
    moveToTrash(id);
    drainEvents();
    EXPECT_TRUE(editor->trashed());
    editor->setTitle(QStringLiteral("no"));
    type("no");
    EXPECT_FALSE(editor->dirty());
    EXPECT_TRUE(model->edits().pending().empty());
    EXPECT_EQ(editor->title(), QString());
}

TEST_F(NoteEditorTest, CopyingWithinTheDelayCopiesTheNewText)
{
    edit("begun");
    type(" and typed");
    model->notes().copy(id);
    EXPECT_EQ(machine.clipboard.text, "begun and typed");
}

TEST_F(NoteEditorTest, QuittingWithinTheDelayWritesTheNote)
{
    edit("begun");
    type(" and typed");
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(note(id).body, "begun and typed");
}

TEST_F(NoteEditorTest, TheRecordingsOfTheNoteAreListed)
{
    edit("begun");
    EXPECT_EQ(editor->recordingCount(), 0);
    hear(id, "heard");
    EXPECT_EQ(editor->recordingCount(), 1);
}

TEST_F(NoteEditorTest, ThePromptTellsTheKindOfNote)
{
    const struct {
        NoteKind kind;
        const char* prompt;
    } rows[] = { { NoteKind::text, "Note title" }, { NoteKind::voice, "Voice note" },
        { NoteKind::dictation, "Dictation" } };
    start();
    for (const auto& row : rows) {
        Note untitled;
        untitled.kind = row.kind;
        const NoteEditor made(model->edits(), model->library(), machine.clock, untitled);
        EXPECT_EQ(made.titlePrompt().toStdString(), row.prompt);
    }
}

} // namespace

} // namespace vesko
