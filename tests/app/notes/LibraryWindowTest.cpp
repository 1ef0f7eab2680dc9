// What the library window shows and does.

#include "VeskoApp/notes/LibraryWindow.h"
#include "tests/app/library/LibraryTest.h"
#include "tests/fakes/Files.h"

#include <QDir>
#include <QTextCursor>

namespace vesko {

namespace {

class LibraryWindowTest : public LibraryTest {
protected:
    void open()
    {
        LibraryTest::open();
        openWindow();
    }
    void openWindow()
    {
        window = std::make_unique<LibraryWindow>(LibraryWindow::Neighbours{ .clock = machine.clock,
            .fileChooser = machine.fileChooser,
            .desktop = machine.desktop,
            .dataFolder = root(),
            .library = model->library(),
            .selection = model->selection(),
            .edits = model->edits(),
            .notes = model->notes(),
            .capture = model->capture(),
            .playback = model->playback(),
            .run = model->run(),
            .clipboard = model->clipboard(),
            .status = model->status() });
    }
    std::string emptyTitle() const
    {
        return window->emptyState().toMap()[QStringLiteral("title")].toString().toStdString();
    }
    std::string emptyButton() const
    {
        return window->emptyState().toMap()[QStringLiteral("button")].toString().toStdString();
    }
    static QString text(const Uuid& id) { return QString::fromStdString(id.text()); }

    std::unique_ptr<LibraryWindow> window; // ends before the model
};

TEST_F(LibraryWindowTest, ALibraryThatCannotBeReadIsSaidToBeAndItsFolderIsOpened)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", "no library");
    slowDisk();
    start();
    openWindow();
    EXPECT_EQ(emptyTitle(), "");
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return !window->refusal().isEmpty(); }));
    EXPECT_EQ(emptyTitle(), "The library could not be opened");
    EXPECT_EQ(window->emptyState().toMap()[QStringLiteral("text")].toString(), window->refusal());
    EXPECT_EQ(emptyButton(), "Open data folder");
    model->status().dismissError();
    EXPECT_EQ(window->statusLine(), QStringLiteral("The library could not be opened"));
    EXPECT_FALSE(window->canCreate());
    window->fillEmptyState();
    EXPECT_EQ(machine.desktop.openedFolders, std::vector<std::filesystem::path>{ root() });
}

TEST_F(LibraryWindowTest, AnEmptyListSaysWhatBelongsThere)
{
    open();
    EXPECT_EQ(emptyTitle(), "A place for your next thought");
    EXPECT_EQ(emptyButton(), "New note");
    window->setQuery(QStringLiteral("fern"));
    ASSERT_TRUE(eventually([&] { return emptyTitle() == "No matching notes"; }));
    EXPECT_EQ(emptyButton(), "Clear search");
    window->showTrash();
    EXPECT_EQ(emptyTitle(), "Trash is empty"); // before the search that found nothing
    EXPECT_EQ(emptyButton(), "");
    window->showAllNotes();
    window->setQuery({});
    model->notes().newNote();
    ASSERT_TRUE(eventually([&] { return window->noteCount() == 1; }));
    EXPECT_FALSE(window->emptyState().isValid());
}

TEST_F(LibraryWindowTest, NothingIsEmptyBeforeTheLibraryIsOpen)
{
    start();
    openWindow();
    EXPECT_FALSE(window->emptyState().isValid());
    EXPECT_FALSE(window->canCreate());
    EXPECT_FALSE(window->canRecord());
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    drainEvents();
    EXPECT_TRUE(window->canCreate());
    EXPECT_EQ(emptyTitle(), "A place for your next thought");
}

TEST_F(LibraryWindowTest, ALibraryThatIsLongInOpeningIsNotShownAsEmpty)
{
    slowDisk();
    start();
    openWindow();
    EXPECT_FALSE(window->opening());
    machine.clock.turn(0.2);
    EXPECT_TRUE(window->opening());
    EXPECT_EQ(window->statusLine(), QStringLiteral("Opening library…"));
    EXPECT_FALSE(window->emptyState().isValid());
    // What the views are told last is what holds.
    QVariant shown;
    QObject::connect(
        window.get(), &LibraryWindow::emptyStateChanged, [&] { shown = window->emptyState(); });
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    drainEvents();
    EXPECT_TRUE(shown.isValid());
    EXPECT_FALSE(window->opening());
    EXPECT_EQ(window->statusLine(), QStringLiteral("Ready to capture"));
}

TEST_F(LibraryWindowTest, TheHeaderNamesWhatIsShown)
{
    open();
    EXPECT_EQ(window->listTitle(), QStringLiteral("All notes"));
    const auto garden = makeProject("Garden");
    window->showProject(text(garden));
    EXPECT_EQ(window->listTitle(), QStringLiteral("Garden"));
    EXPECT_EQ(window->selectedProjectID(), text(garden));
    window->showTrash();
    EXPECT_EQ(window->listTitle(), QStringLiteral("Trash"));
    EXPECT_EQ(window->selectedProjectID(), QString());
    window->showProject(text(garden));
    EXPECT_FALSE(window->showingTrash());
    window->showAllNotes();
    EXPECT_EQ(window->listTitle(), QStringLiteral("All notes"));
}

TEST_F(LibraryWindowTest, ProjectsAreMadeAndRenamed)
{
    open();
    window->saveProject({}, QStringLiteral("Garden"));
    ASSERT_TRUE(eventually([&] { return window->projects().size() == 1; }));
    const auto id = window->projects()[0].toMap()[QStringLiteral("id")].toString();
    window->saveProject(id, QStringLiteral("Balcony"));
    ASSERT_TRUE(eventually([&] {
        return window->projects()[0].toMap()[QStringLiteral("name")] == QStringLiteral("Balcony");
    }));
    EXPECT_EQ(window->projects().size(), 1);
}

TEST_F(LibraryWindowTest, TheSelectedNoteHasAnEditorOfItsOwn)
{
    open();
    const auto first = write("one", "");
    const auto second = write("two", "");
    drainEvents();
    ASSERT_EQ(window->selectedRow(), 0);
    EXPECT_EQ(window->editor()->id(), second);
    window->selectRow(1);
    EXPECT_EQ(window->editor()->id(), first);
    window->selectRow(7);
    EXPECT_EQ(window->editor()->id(), first);
    EXPECT_EQ(window->editors().size(), 1);
    window->showTrash();
    EXPECT_TRUE(window->editors().isEmpty());
    EXPECT_EQ(window->selectedRow(), -1);
    window->showAllNotes();
    EXPECT_EQ(window->editor()->id(), first);
}

TEST_F(LibraryWindowTest, AnotherSelectionSavesWhatWasTyped)
{
    open();
    const auto first = write("one", "");
    write("two", "");
    window->selectRow(1);
    QTextDocument document;
    window->editor()->attach(document);
    QTextCursor(&document).insertText(QStringLiteral("typed"));
    window->selectRow(0);
    ASSERT_TRUE(eventually([&] { return note(first).body == "typed"; }));
    drainEvents();
}

TEST_F(LibraryWindowTest, WhatTrashingHidesIsSaved)
{
    open();
    const auto id = write("one", "");
    QTextDocument document;
    window->editor()->attach(document);
    QTextCursor(&document).insertText(QStringLiteral("typed"));
    window->selected()->trash();
    ASSERT_TRUE(eventually([&] { return !window->editor(); }));
    ASSERT_TRUE(eventually([&] { return note(id).body == "typed"; }));
    EXPECT_TRUE(note(id).deletedAt.has_value());
    drainEvents();
}

TEST_F(LibraryWindowTest, TheEditedNoteStaysSelectedAsItMovesUp)
{
    open();
    write("one", "");
    write("two", "");
    window->selectRow(1);
    window->editor()->setTitle(QStringLiteral("one more"));
    machine.clock.turn(1);
    ASSERT_TRUE(eventually([&] { return window->selectedRow() == 0; }));
    EXPECT_EQ(window->editor()->title(), QStringLiteral("one more"));
}

TEST_F(LibraryWindowTest, TheStatusLineTellsThePhase)
{
    open();
    EXPECT_EQ(window->statusLine(), QStringLiteral("Ready to capture"));
    machine.recorder.access.close();
    model->capture().recordNote(false);
    EXPECT_EQ(window->statusLine(), QStringLiteral("Starting microphone"));
    EXPECT_FALSE(window->canRecord());
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_EQ(window->recordText(), QStringLiteral("Finish recording"));
    EXPECT_TRUE(window->canRecord());
    machine.clock.turn(61.05);
    EXPECT_EQ(window->statusLine(), QStringLiteral("Recording 1:01"));
    machine.recognizer.hears.reset();
    model->capture().recordNote(false);
    EXPECT_EQ(window->statusLine(), QStringLiteral("Transcribing"));
    EXPECT_FALSE(window->canRecord());
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    machine.recognizer.report({ .text = "heard", .isFinal = true });
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(window->statusLine(), QStringLiteral("Saved to your note"));
    EXPECT_EQ(window->recordText(), QStringLiteral("Record note"));
}

TEST_F(LibraryWindowTest, TheActionsAreOnTheSelectedNote)
{
    open();
    const auto other = write("other", "");
    const auto id = write("Balcony", "tomatoes");
    window->copyNote();
    EXPECT_EQ(machine.clipboard.text, "Balcony\n\ntomatoes");
    EXPECT_EQ(window->copiedNoteID(), text(id));
    EXPECT_TRUE(window->exportPath().startsWith(QStringLiteral("~/")));
    EXPECT_TRUE(window->exportPath().endsWith(QStringLiteral("/Balcony.md")));
    const auto file = folder.path() / "Balcony.md";
    const auto path = QString::fromStdString(file.string());
    EXPECT_FALSE(LibraryWindow::replacesFile(path));
    window->exportNote(path + u' ');
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(file); }));
    EXPECT_TRUE(LibraryWindow::replacesFile(path));
    const auto garden = makeProject("Garden");
    window->selected()->assign(text(garden));
    ASSERT_TRUE(eventually([&] { return note(id).projectID == garden; }));
    EXPECT_EQ(window->editor()->projectID(), text(garden));
    window->selected()->assign({});
    ASSERT_TRUE(eventually([&] { return !note(id).projectID; }));
    window->selected()->trash();
    ASSERT_TRUE(eventually([&] { return note(id).deletedAt.has_value(); }));
    window->showTrash();
    EXPECT_TRUE(window->editor()->trashed());
    window->selected()->restore();
    ASSERT_TRUE(eventually([&] { return !note(id).deletedAt; }));
    window->showAllNotes();
    window->selected()->trash();
    ASSERT_TRUE(eventually([&] { return note(id).deletedAt.has_value(); }));
    window->showTrash();
    window->selected()->deletePermanently();
    ASSERT_TRUE(eventually([&] { return !model->library().note(id); }));
    EXPECT_NE(model->library().note(other), nullptr);
    // Without a selected note all of them do nothing.
    window->copyNote();
    window->selected()->assign(text(garden));
    window->selected()->trash();
    window->selected()->restore();
    window->selected()->deletePermanently();
    EXPECT_EQ(window->exportPath(), QString());
    drainEvents();
    EXPECT_EQ(model->library().contents().notes.size(), 1U);
}

TEST_F(LibraryWindowTest, ANoteIsTakenBackFromTheTrashForAWhile)
{
    open();
    const auto id = write("Balcony", "tomatoes");
    write("other", "");
    model->selection().setSelectedNoteID(id);
    window->selected()->trash();
    EXPECT_EQ(window->selected()->undoText(), QString()); // until it is there
    ASSERT_TRUE(eventually([&] { return !window->selected()->undoText().isEmpty(); }));
    EXPECT_EQ(window->selected()->undoText(), QStringLiteral("Moved to Trash"));
    window->selected()->undo();
    ASSERT_TRUE(eventually([&] { return !note(id).deletedAt; }));
    EXPECT_EQ(model->selection().selectedNoteID(), id);
    EXPECT_EQ(window->selected()->undoText(), QString());

    window->selected()->trash();
    ASSERT_TRUE(eventually([&] { return !window->selected()->undoText().isEmpty(); }));
    machine.clock.turn(10);
    EXPECT_EQ(window->selected()->undoText(), QString());
    window->selected()->undo();
    drainEvents();
    EXPECT_TRUE(note(id).deletedAt.has_value());
}

TEST_F(LibraryWindowTest, WhatCouldNotBeMovedToTheTrashIsNotTakenBack)
{
    open();
    write("Balcony", "tomatoes");
    breakStore();
    window->selected()->trash();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(window->selected()->undoText(), QString());
}

TEST_F(LibraryWindowTest, RowsAreSelectedWithTheModifiersThatOtherListsKnow)
{
    open();
    for (const char* title : { "d", "c", "b", "a" })
        write(title, "");
    const auto chosen = [&] {
        std::string rows;
        for (int row = 0; row < window->noteCount(); ++row)
            rows += window->noteList().index(row).data(NoteListModel::chosenRole).toBool() ? 'x'
                                                                                           : '.';
        return rows;
    };
    window->selectRow(1);
    EXPECT_EQ(chosen(), ".x..");
    EXPECT_EQ(window->editors().size(), 1);
    window->selectRow(3, Qt::ShiftModifier);
    EXPECT_EQ(chosen(), ".xxx");
    EXPECT_EQ(window->editors().size(), 0);
    EXPECT_EQ(window->selectedRow(), 3);
    window->selectRow(2, Qt::ControlModifier);
    EXPECT_EQ(chosen(), ".x.x");
    window->selectAll();
    EXPECT_EQ(chosen(), "xxxx");
    EXPECT_EQ(window->selected()->title(), QStringLiteral("4 notes selected"));
    window->selectRow(0);
    EXPECT_EQ(chosen(), "x...");
    EXPECT_EQ(window->editors().size(), 1);
}

TEST_F(LibraryWindowTest, WhatIsTypedIsSavedWhenSeveralAreSelected)
{
    open();
    write("other", "");
    const auto id = write("Balcony", "");
    window->editor()->setTitle(QStringLiteral("Garden"));
    window->selectAll();
    ASSERT_TRUE(eventually([&] { return note(id).title == "Garden"; }));
    drainEvents();
}

struct ExportTest : LibraryWindowTest {
    QWindow above;
    int pathWanted = 0;

    void open()
    {
        LibraryWindowTest::open();
        QObject::connect(window.get(), &LibraryWindow::exportPathWanted, [this] { ++pathWanted; });
    }
    void answer(FileChooser::Answer::Outcome outcome, const std::filesystem::path& file = {})
    {
        machine.fileChooser.answer.set({ outcome, file });
        drainEvents();
    }
};

TEST_F(ExportTest, TheDesktopIsAskedWhereTo)
{
    open();
    write("Balcony", "tomatoes");
    window->chooseExport(&above);
    ASSERT_EQ(machine.fileChooser.asked.size(), 1U);
    const auto& asked = machine.fileChooser.asked[0];
    EXPECT_EQ(asked.title, "Export Markdown…");
    EXPECT_EQ(asked.agree, "Save");
    EXPECT_EQ(asked.file.filename(), "Balcony.md");
    EXPECT_TRUE(std::filesystem::is_directory(asked.file.parent_path()));
    EXPECT_EQ(asked.kind, "Markdown");
    EXPECT_EQ(asked.pattern, "*.md");
}

TEST_F(ExportTest, TheNoteGoesIntoTheChosenFile)
{
    open();
    write("Balcony", "tomatoes");
    window->chooseExport(&above);
    answer(FileChooser::Answer::chosen, folder.path() / "chosen.md");
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_EQ(bytesOf(folder.path() / "chosen.md"), "# Balcony\n\ntomatoes\n");
    EXPECT_EQ(pathWanted, 0);
}

TEST_F(ExportTest, ANoteThatIsLeftMeanwhileIsTheOneThatIsExported)
{
    open();
    write("Balcony", "tomatoes");
    window->chooseExport(&above);
    write("Errands", "bread");
    answer(FileChooser::Answer::chosen, folder.path() / "chosen.md");
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_EQ(bytesOf(folder.path() / "chosen.md"), "# Balcony\n\ntomatoes\n");
}

TEST_F(ExportTest, WhoCancelsHearsNothingOfIt)
{
    open();
    write("Balcony", "tomatoes");
    const auto said = model->status().message();
    window->chooseExport(&above);
    answer(FileChooser::Answer::cancelled);
    EXPECT_EQ(model->status().message(), said);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(pathWanted, 0);
}

TEST_F(ExportTest, WithoutADialogThePathIsAskedForHere)
{
    open();
    write("Balcony", "tomatoes");
    window->chooseExport(&above);
    answer(FileChooser::Answer::unavailable);
    EXPECT_EQ(pathWanted, 1);
    // Not for a note that isn't the one that is shown.
    window->chooseExport(&above);
    write("Errands", "bread");
    answer(FileChooser::Answer::unavailable);
    EXPECT_EQ(pathWanted, 1);
}

TEST_F(ExportTest, WithoutANoteNobodyIsAsked)
{
    open();
    window->chooseExport(&above);
    EXPECT_TRUE(machine.fileChooser.asked.empty());
}

TEST_F(ExportTest, AnAnswerAfterTheWindowsEndIsNobodys)
{
    open();
    write("Balcony", "tomatoes");
    window->chooseExport(&above);
    window.reset();
    answer(FileChooser::Answer::chosen, folder.path() / "chosen.md");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "chosen.md"));
}

TEST_F(LibraryWindowTest, ARecordingIsShownInItsFolder)
{
    open();
    const auto id = write("", "");
    hear(id, "heard");
    const auto& recording = note(id).recordings[0];
    window->showInFolder(text(recording.id));
    ASSERT_TRUE(eventually([&] { return !machine.desktop.shownFiles.empty(); }));
    EXPECT_EQ(machine.desktop.shownFiles[0], root() / "recordings" / recording.fileName);
    window->showInFolder(text(Uuid::random()));
    drainEvents();
    EXPECT_EQ(machine.desktop.shownFiles.size(), 1U);
}

TEST_F(LibraryWindowTest, ARecordingIsPlayedAndTranscribedAgain)
{
    open();
    const auto id = write("", "");
    hear(id, "heard");
    ASSERT_EQ(window->editor()->recordingCount(), 1);
    const auto recording = text(note(id).recordings[0].id);
    window->play(recording);
    ASSERT_TRUE(eventually([&] { return window->playingID() == recording; }));
    window->play(recording);
    EXPECT_EQ(window->playingID(), QString());
    machine.recognizer.hears = "heard better";
    machine.clipboard.text.reset();
    window->retry(recording);
    ASSERT_TRUE(reach(Phase::idle));
    ASSERT_TRUE(eventually([&] { return note(id).recordings[0].attempts.size() == 2; }));
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(machine.clipboard.text, std::nullopt);
    window->play(QStringLiteral("no id"));
    window->retry(QStringLiteral("no id"));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

} // namespace

} // namespace vesko
