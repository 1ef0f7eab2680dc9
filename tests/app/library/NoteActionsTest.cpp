// What the library window does with notes and projects.

#include "VeskoApp/library/MarkdownFiles.h"
#include "tests/app/library/LibraryTest.h"
#include "tests/fakes/Files.h"

#include <fstream>
#include <sstream>

namespace vesko {

namespace {

class NoteActionsTest : public LibraryTest {
protected:
    void listenForNewNotes()
    {
        const auto& notes = model->notes();
        QObject::connect(
            &notes, &NoteActions::newNoteBegun, &notes, [this] { told.emplace_back("begun"); });
        QObject::connect(&notes, &NoteActions::newNoteEnded, &notes, [this](bool made) {
            const bool selected = made && model->selection().selectedNote();
            told.emplace_back(selected ? "selected" : "failed");
        });
    }

    std::vector<std::string> told;
};

std::string contentOf(const std::filesystem::path& path)
{
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

TEST_F(NoteActionsTest, NothingHappensUntilTheLibraryIsReady)
{
    start();
    listenForNewNotes();
    model->notes().newNote();
    EXPECT_TRUE(told.empty());
    model->notes().createProject("Garden");
    EXPECT_THROW(awaited(savedEdit(Uuid::random(), { "a", "b", "" })), VeskoError);
    EXPECT_TRUE(model->library().contents().notes.empty());
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_TRUE(model->library().contents().notes.empty());
    EXPECT_TRUE(model->library().contents().projects.empty());
}

TEST_F(NoteActionsTest, ANewNoteIsShownAndSelected)
{
    open();
    const auto garden = makeProject("Garden");
    model->selection().setSelectedProjectID(garden);
    model->selection().setShowingTrash(true);
    model->selection().setQuery("shopping");
    listenForNewNotes();
    model->notes().newNote();
    EXPECT_THAT(told, testing::ElementsAre("begun"));
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_THAT(told, testing::ElementsAre("begun", "selected"));
    EXPECT_EQ(onlyNote().kind, NoteKind::text);
    EXPECT_EQ(onlyNote().projectID, garden);
    EXPECT_EQ(model->selection().selectedNoteID(), onlyNote().id);
    EXPECT_EQ(model->selection().selectedNote(), &model->selection().visibleNotes()[0]);
    EXPECT_EQ(model->selection().query(), "");
    EXPECT_FALSE(model->selection().showingTrash());
}

TEST_F(NoteActionsTest, ANewNoteThatCannotBeSavedIsNotThere)
{
    open();
    model->selection().setQuery("shopping");
    breakStore();
    listenForNewNotes();
    model->notes().newNote();
    ASSERT_TRUE(eventually([&] { return model->status().errorMessage() == storageFailed; }));
    EXPECT_THAT(told, testing::ElementsAre("begun", "failed"));
    EXPECT_TRUE(model->library().contents().notes.empty());
    EXPECT_EQ(model->selection().query(), "shopping");
    EXPECT_EQ(model->selection().selectedNoteID(), std::nullopt);
}

TEST_F(NoteActionsTest, ProjectsAreMadeRenamedAndGivenToNotes)
{
    open();
    const auto garden = makeProject("  Garden ");
    EXPECT_EQ(model->library().contents().projects[0].name, "Garden");
    model->notes().renameProject(garden, "Balcony");
    ASSERT_TRUE(
        eventually([&] { return model->library().contents().projects[0].name == "Balcony"; }));
    const auto id = write("", "");
    model->notes().assign({ { id, garden } });
    ASSERT_TRUE(eventually([&] { return note(id).projectID == garden; }));
    model->notes().assign({ { id, std::nullopt } });
    ASSERT_TRUE(eventually([&] { return !note(id).projectID; }));
}

TEST_F(NoteActionsTest, AProjectThatCannotBeIsToldInTheErrorLine)
{
    open();
    makeProject("Garden");
    model->notes().createProject("garden");
    ASSERT_TRUE(eventually([&] {
        return model->status().errorMessage() == "A project with this name already exists.";
    }));
    model->notes().createProject("   ");
    ASSERT_TRUE(eventually([&] {
        return model->status().errorMessage()
            == "Enter a project name between 1 and 80 characters.";
    }));
    EXPECT_EQ(model->library().contents().projects.size(), 1U);
}

TEST_F(NoteActionsTest, ANoteGoesToTheTrashAndBackAndAway)
{
    open();
    const auto id = write("Kept", "text");
    moveToTrash(id);
    EXPECT_EQ(model->selection().selectedNoteID(), id);
    EXPECT_EQ(model->selection().selectedNote(), nullptr);
    model->selection().setShowingTrash(true);
    EXPECT_EQ(model->selection().selectedNote()->id, id);
    model->notes().restore({ id });
    ASSERT_TRUE(eventually([&] { return !note(id).deletedAt; }));
    model->notes().remove({ id });
    ASSERT_TRUE(eventually(
        [&] { return model->status().errorMessage() == "This item is no longer available."; }));
    moveToTrash(id);
    model->notes().remove({ id });
    EXPECT_TRUE(eventually([&] { return !model->library().note(id); }));
}

TEST_F(NoteActionsTest, WhatCouldNotBeSavedOfADeletedNoteHoldsUpNoQuit)
{
    open();
    const auto id = write("", "text");
    model->edits().setPending(id, { "", "never saved", "text" });
    moveToTrash(id);
    model->notes().remove({ id });
    ASSERT_TRUE(eventually([&] { return !model->library().note(id); }));
    drainEvents();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(NoteActionsTest, ANoteIsCopiedAsTheUserSeesIt)
{
    open();
    const auto id = write("Title", "saved");
    model->edits().setPending(id, { "Title", "typed a moment ago", "saved" });
    model->notes().copy(id);
    EXPECT_EQ(machine.clipboard.text, "Title\n\ntyped a moment ago");
    EXPECT_EQ(model->status().message(), "Note copied to clipboard");
    EXPECT_EQ(model->notes().copiedNoteID(), id);
}

TEST_F(NoteActionsTest, ACopyTakesInTheTranscriptThatLandedUnderTheEdit)
{
    open();
    const auto id = write("", "begun");
    hear(id, "and heard");
    model->edits().setPending(id, { "", "begun!", "begun" });
    EXPECT_EQ(model->notes().clipboardText(id), "begun!\n\nand heard");
}

TEST_F(NoteActionsTest, WithoutTextNothingIsCopied)
{
    open();
    const auto other = write("", "something");
    model->notes().copy(other);
    const auto id = write("", " \n ");
    model->notes().copy(id);
    EXPECT_EQ(model->status().message(), "This note has no text to copy yet");
    EXPECT_EQ(machine.clipboard.text, "something");
    EXPECT_EQ(model->notes().copiedNoteID(), other);
    model->notes().copy(Uuid::random());
    EXPECT_EQ(model->status().message(), "This note has no text to copy yet");
}

TEST_F(NoteActionsTest, AClipboardThatFailsIsToldByItsOwnMessage)
{
    open();
    const auto id = write("", "something");
    machine.clipboard.works = false;
    model->notes().copy(id);
    EXPECT_EQ(model->notes().copiedNoteID(), std::nullopt);
    EXPECT_EQ(model->status().errorMessage(),
        "The text is saved, but the clipboard could not be updated. Copy it from your note.");
}

TEST_F(NoteActionsTest, TheMarkOfACopyGoesAfterASecondAndAHalf)
{
    open();
    const auto first = write("", "one");
    const auto second = write("", "two");
    model->notes().copy(first);
    machine.clock.turn(1);
    model->notes().copy(first); // the first copy's mark ends the second's
    machine.clock.turn(0.499);
    EXPECT_EQ(model->notes().copiedNoteID(), first);
    machine.clock.turn(0.002);
    EXPECT_EQ(model->notes().copiedNoteID(), std::nullopt);

    model->notes().copy(first);
    machine.clock.turn(1);
    model->notes().copy(second);
    machine.clock.turn(1);
    EXPECT_EQ(model->notes().copiedNoteID(), second);
    machine.clock.turn(1);
    EXPECT_EQ(model->notes().copiedNoteID(), std::nullopt);
}

TEST_F(NoteActionsTest, TheEndOfTheProgramUnderACopyIsNoHarm)
{
    open();
    model->notes().copy(write("", "one"));
    model.reset();
    machine.clock.turn(5);
}

TEST_F(NoteActionsTest, ExportsAreNamedAfterTheNote)
{
    Note named;
    const std::string family = "👩‍👩‍👧";
    std::string wideTitle, wideName;
    for (int index = 0; index < 90; ++index) {
        wideTitle += family;
        if (index < 11)
            wideName += family;
    }
    const struct {
        const char* what;
        std::string title;
        std::string name;
    } rows[] = {
        { "a plain title", "Balcony", "Balcony.md" },
        { "with slashes", "a/b//c", "a-b--c.md" },
        { "more than 80 characters", std::string(90, 'a'), std::string(80, 'a') + ".md" },
        { "more bytes than a folder takes", wideTitle, wideName + ".md" },
        { "no title", "", "Untitled note.md" },
    };
    for (const auto& row : rows) {
        named.title = row.title;
        EXPECT_EQ(markdownName(named), row.name) << row.what;
    }
}

TEST_F(NoteActionsTest, AnExportHoldsWhatIsSaved)
{
    open();
    const auto garden = makeProject("Garden");
    const auto id = write("Balcony", "tomatoes");
    model->notes().assign({ { id, garden } });
    ASSERT_TRUE(eventually([&] { return note(id).projectID == garden; }));
    model->edits().setPending(id, { "Balcony", "not saved yet", "tomatoes" });
    const auto file = folder.path() / "Balcony.md";
    model->notes().exportTo(id, file);
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_EQ(contentOf(file), note(id).markdown("Garden"));
}

TEST_F(NoteActionsTest, SeveralNotesAreExportedBesideEachOtherAndReplaceNothing)
{
    open();
    const auto garden = makeProject("Garden");
    const auto first = write("Balcony", "tomatoes");
    const auto second = write("Balcony", "basil");
    const auto third = write("Errands", "bread");
    write("not exported", "");
    model->notes().assign({ { second, garden } });
    ASSERT_TRUE(eventually([&] { return note(second).projectID == garden; }));
    const auto exports = folder.path() / "exports";
    std::filesystem::create_directory(exports);
    putBytes(exports / "Errands.md", "not ours");
    model->notes().exportInto({ first, second, third }, exports);
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_EQ(contentOf(exports / "Balcony.md"), note(first).markdown(std::nullopt));
    EXPECT_EQ(contentOf(exports / "Balcony 2.md"), note(second).markdown("Garden"));
    EXPECT_EQ(contentOf(exports / "Errands.md"), "not ours");
    EXPECT_EQ(contentOf(exports / "Errands 2.md"), note(third).markdown(std::nullopt));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(exports), {}), 4);
}

TEST_F(NoteActionsTest, SeveralNotesThatCannotBeExportedAreToldOnce)
{
    open();
    const auto first = write("Balcony", "tomatoes");
    const auto second = write("Errands", "bread");
    model->notes().exportInto({ first, second }, folder.path() / "not there");
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "not there"));
}

TEST_F(NoteActionsTest, AnExportLeavesTheFilesBesideItAlone)
{
    open();
    const auto id = write("Plan", "Sow beans");
    const auto file = folder.path() / "plan.md";
    const auto temporary = folder.path() / "plan.md.tmp";
    const auto previous = folder.path() / "plan.md.previous";
    for (const auto& own : { file, temporary, previous })
        std::ofstream(own) << "the user's own";
    std::filesystem::permissions(file, std::filesystem::perms(0644));
    model->notes().exportTo(id, file);
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_NE(contentOf(file), "the user's own");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0644));
    EXPECT_EQ(contentOf(temporary), "the user's own");
    EXPECT_EQ(contentOf(previous), "the user's own");
}

TEST_F(NoteActionsTest, AnExportThatFailsIsTold)
{
    open();
    const auto id = write("Balcony", "tomatoes");
    model->notes().exportTo(id, folder.path() / "nowhere" / "Balcony.md");
    EXPECT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_NE(model->status().message(), "Markdown exported");
    model->notes().exportTo(Uuid::random(), folder.path() / "nothing.md");
    drainEvents();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "nothing.md"));
}

} // namespace

} // namespace vesko
