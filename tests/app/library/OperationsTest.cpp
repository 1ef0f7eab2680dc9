// What the library window does with notes and projects.

#include "tests/app/library/LibraryTest.h"

#include <fstream>
#include <sstream>

namespace vesko {

namespace {

using OperationsTest = LibraryTest;

std::string contentOf(const std::filesystem::path& path)
{
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

TEST_F(OperationsTest, NothingHappensUntilTheLibraryIsReady)
{
    start();
    model->newNote();
    model->createProject("Garden");
    EXPECT_THROW(awaited(model->editNote(Uuid::random(), { "a", "b", "" })), VeskoError);
    EXPECT_TRUE(model->library().notes.empty());
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    EXPECT_TRUE(model->library().notes.empty());
    EXPECT_TRUE(model->library().projects.empty());
}

TEST_F(OperationsTest, ANewNoteIsShownAndSelected)
{
    open();
    const auto garden = makeProject("Garden");
    model->setSelectedProjectID(garden);
    model->setShowingTrash(true);
    model->setQuery("shopping");
    model->newNote();
    ASSERT_TRUE(eventually([&] { return !model->library().notes.empty(); }));
    EXPECT_EQ(onlyNote().kind, NoteKind::text);
    EXPECT_EQ(onlyNote().projectID, garden);
    EXPECT_EQ(model->selectedNoteID(), onlyNote().id);
    EXPECT_EQ(model->selectedNote(), &model->visibleNotes()[0]);
    EXPECT_EQ(model->query(), "");
    EXPECT_FALSE(model->showingTrash());
}

TEST_F(OperationsTest, ANewNoteThatCannotBeSavedIsNotThere)
{
    open();
    model->setQuery("shopping");
    breakStore();
    model->newNote();
    ASSERT_TRUE(eventually([&] { return model->errorMessage() == storageFailed; }));
    EXPECT_TRUE(model->library().notes.empty());
    EXPECT_EQ(model->query(), "shopping");
    EXPECT_EQ(model->selectedNoteID(), std::nullopt);
}

TEST_F(OperationsTest, AnEditIsPendingUntilItIsSaved)
{
    open();
    const auto id = write("", "");
    const AppModel::PendingEdit edit{ "Title", "Text", "" };
    model->setPendingEdit(id, edit);
    EXPECT_EQ(model->pendingEdits().at(id), edit);
    awaited(model->editNote(id, edit));
    EXPECT_TRUE(model->pendingEdits().empty());
    EXPECT_EQ(note(id).title, "Title");
    EXPECT_EQ(note(id).body, "Text");
}

TEST_F(OperationsTest, ANewerEditStaysPending)
{
    open();
    const auto id = write("", "");
    for (const AppModel::PendingEdit& newer : { AppModel::PendingEdit{ "Title!", "Text", "" },
             { "Title", "Text!", "" }, { "Title", "Text", "!" } }) {
        model->setPendingEdit(id, newer);
        awaited(model->editNote(id, { "Title", "Text", "" }));
        EXPECT_EQ(model->pendingEdits().at(id), newer);
    }
}

TEST_F(OperationsTest, AFailedSaveKeepsTheEditAndTheQuitTriesAgain)
{
    open();
    const auto id = write("", "");
    model->setPendingEdit(id, { "", "typed", "" });
    breakStore();
    EXPECT_TRUE(eventually([failed = model->saveEdit(id, { "", "typed", "" }), this] {
        return model->errorMessage() == storageFailed;
    }));
    EXPECT_EQ(model->pendingEdits().size(), 1U);
    model->dismissError();
    EXPECT_EQ(model->errorMessage(), "");
    EXPECT_FALSE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->errorMessage(), storageFailed);
    repairStore();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(note(id).body, "typed");
}

TEST_F(OperationsTest, QuittingAtOnceWritesEveryPendingEdit)
{
    open();
    const auto first = write("", "");
    const auto second = write("", "");
    model->setPendingEdit(first, { "One", "1", "" });
    model->setPendingEdit(second, { "Two", "2", "" });
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    model.reset();
    const LibraryStore store(root(), machine.clock);
    EXPECT_EQ(store.snapshot().notes[0].body, "1");
    EXPECT_EQ(store.snapshot().notes[1].body, "2");
}

TEST_F(OperationsTest, ProjectsAreMadeRenamedAndGivenToNotes)
{
    open();
    const auto garden = makeProject("  Garden ");
    EXPECT_EQ(model->library().projects[0].name, "Garden");
    model->renameProject(garden, "Balcony");
    ASSERT_TRUE(eventually([&] { return model->library().projects[0].name == "Balcony"; }));
    const auto id = write("", "");
    model->assign(note(id), garden);
    ASSERT_TRUE(eventually([&] { return note(id).projectID == garden; }));
    model->assign(note(id), std::nullopt);
    ASSERT_TRUE(eventually([&] { return !note(id).projectID; }));
}

TEST_F(OperationsTest, AProjectThatCannotBeIsToldInTheErrorLine)
{
    open();
    makeProject("Garden");
    model->createProject("garden");
    ASSERT_TRUE(eventually(
        [&] { return model->errorMessage() == "A project with this name already exists."; }));
    model->createProject("   ");
    ASSERT_TRUE(eventually([&] {
        return model->errorMessage() == "Enter a project name between 1 and 80 characters.";
    }));
    EXPECT_EQ(model->library().projects.size(), 1U);
}

TEST_F(OperationsTest, ANoteGoesToTheTrashAndBackAndAway)
{
    open();
    const auto id = write("Kept", "text");
    moveToTrash(id);
    EXPECT_EQ(model->selectedNoteID(), id);
    EXPECT_EQ(model->selectedNote(), nullptr);
    model->setShowingTrash(true);
    EXPECT_EQ(model->selectedNote()->id, id);
    model->restore(note(id));
    ASSERT_TRUE(eventually([&] { return !note(id).deletedAt; }));
    model->trash(note(id), true);
    ASSERT_TRUE(
        eventually([&] { return model->errorMessage() == "This item is no longer available."; }));
    moveToTrash(id);
    model->trash(note(id), true);
    EXPECT_TRUE(eventually([&] { return !model->note(id); }));
}

TEST_F(OperationsTest, WhatCouldNotBeSavedOfADeletedNoteHoldsUpNoQuit)
{
    open();
    const auto id = write("", "text");
    model->setPendingEdit(id, { "", "never saved", "text" });
    moveToTrash(id);
    model->trash(note(id), true);
    ASSERT_TRUE(eventually([&] { return !model->note(id); }));
    drainEvents();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(OperationsTest, ANoteIsCopiedAsTheUserSeesIt)
{
    open();
    const auto id = write("Title", "saved");
    model->setPendingEdit(id, { "Title", "typed a moment ago", "saved" });
    model->copyNote(id);
    EXPECT_EQ(machine.clipboard.text, "Title\n\ntyped a moment ago");
    EXPECT_EQ(model->message(), "Note copied to clipboard");
    EXPECT_EQ(model->copiedNoteID(), id);
}

TEST_F(OperationsTest, ACopyTakesInTheTranscriptThatLandedUnderTheEdit)
{
    open();
    const auto id = write("", "begun");
    hear(id, "and heard");
    model->setPendingEdit(id, { "", "begun!", "begun" });
    EXPECT_EQ(model->noteClipboardText(id), "begun!\n\nand heard");
}

TEST_F(OperationsTest, WithoutTextNothingIsCopied)
{
    open();
    const auto other = write("", "something");
    model->copyNote(other);
    const auto id = write("", " \n ");
    model->copyNote(id);
    EXPECT_EQ(model->message(), "This note has no text to copy yet");
    EXPECT_EQ(machine.clipboard.text, "something");
    EXPECT_EQ(model->copiedNoteID(), other);
    model->copyNote(Uuid::random());
    EXPECT_EQ(model->message(), "This note has no text to copy yet");
}

TEST_F(OperationsTest, AClipboardThatFailsIsToldByItsOwnMessage)
{
    open();
    const auto id = write("", "something");
    machine.clipboard.works = false;
    model->copyNote(id);
    EXPECT_EQ(model->copiedNoteID(), std::nullopt);
    EXPECT_EQ(model->errorMessage(),
        "The text is saved, but the clipboard could not be updated. Copy it from your note.");
}

TEST_F(OperationsTest, TheMarkOfACopyGoesAfterASecondAndAHalf)
{
    open();
    const auto first = write("", "one");
    const auto second = write("", "two");
    model->copyNote(first);
    machine.clock.turn(1);
    model->copyNote(first); // the first copy's mark ends the second's
    machine.clock.turn(0.499);
    EXPECT_EQ(model->copiedNoteID(), first);
    machine.clock.turn(0.002);
    EXPECT_EQ(model->copiedNoteID(), std::nullopt);

    model->copyNote(first);
    machine.clock.turn(1);
    model->copyNote(second);
    machine.clock.turn(1);
    EXPECT_EQ(model->copiedNoteID(), second);
    machine.clock.turn(1);
    EXPECT_EQ(model->copiedNoteID(), std::nullopt);
}

TEST_F(OperationsTest, TheEndOfTheProgramUnderACopyIsNoHarm)
{
    open();
    model->copyNote(write("", "one"));
    model.reset();
    machine.clock.turn(5);
}

TEST_F(OperationsTest, ExportsAreNamedAfterTheNote)
{
    Note named;
    const std::string family = "👩‍👩‍👧";
    std::string longTitle, cut;
    for (int index = 0; index < 90; ++index) {
        longTitle += family;
        if (index < 80)
            cut += family;
    }
    const struct {
        const char* what;
        std::string title;
        std::string name;
    } rows[] = {
        { "a plain title", "Balcony", "Balcony.md" },
        { "with slashes", "a/b//c", "a-b--c.md" },
        { "more than 80 characters", longTitle, cut + ".md" },
        { "no title", "", "Untitled note.md" },
    };
    for (const auto& row : rows) {
        named.title = row.title;
        EXPECT_EQ(AppModel::exportName(named), row.name) << row.what;
    }
}

TEST_F(OperationsTest, AnExportHoldsWhatIsSaved)
{
    open();
    const auto garden = makeProject("Garden");
    const auto id = write("Balcony", "tomatoes");
    model->assign(note(id), garden);
    ASSERT_TRUE(eventually([&] { return note(id).projectID == garden; }));
    model->setPendingEdit(id, { "Balcony", "not saved yet", "tomatoes" });
    const auto file = folder.path() / "Balcony.md";
    model->exportNote(id, file);
    ASSERT_TRUE(eventually([&] { return model->message() == "Markdown exported"; }));
    EXPECT_EQ(contentOf(file), note(id).markdown("Garden"));
}

TEST_F(OperationsTest, AnExportThatFailsIsTold)
{
    open();
    const auto id = write("Balcony", "tomatoes");
    model->exportNote(id, folder.path() / "nowhere" / "Balcony.md");
    EXPECT_TRUE(eventually([&] { return !model->errorMessage().empty(); }));
    EXPECT_NE(model->message(), "Markdown exported");
    model->exportNote(Uuid::random(), folder.path() / "nothing.md");
    drainEvents();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "nothing.md"));
}

TEST_F(OperationsTest, TheDataFolderIsOpened)
{
    start();
    model->openDataFolder();
    EXPECT_EQ(machine.desktop.openedFolders,
        std::vector<std::filesystem::path>{ machine.all.dataFolder });
}

} // namespace

} // namespace vesko
