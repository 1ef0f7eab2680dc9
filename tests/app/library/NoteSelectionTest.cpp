// Which notes are shown, and which of them is selected.

#include "tests/app/library/LibraryTest.h"

namespace vesko {

namespace {

class NoteSelectionTest : public LibraryTest {
protected:
    std::vector<std::string> titles() const
    {
        std::vector<std::string> shown;
        for (const auto& note : model->selection().visibleNotes())
            shown.push_back(note.title);
        return shown;
    }
    std::vector<std::string> selected() const
    {
        std::vector<std::string> shown;
        for (const Note* note : model->selection().selectedNotes())
            shown.push_back(note->title);
        return shown;
    }
    using Titles = std::vector<std::string>;
};

TEST_F(NoteSelectionTest, TheNewestChangeComesFirst)
{
    open();
    const auto first = write("one", "");
    write("two", "");
    EXPECT_EQ(titles(), (Titles{ "two", "one" }));
    machine.clock.turn(1);
    awaited(savedEdit(first, { "one again", "", "" }));
    EXPECT_EQ(titles(), (Titles{ "one again", "two" }));
}

TEST_F(NoteSelectionTest, AProjectAndTheTrashShowTheirOwn)
{
    open();
    const auto garden = makeProject("Garden");
    write("loose", "");
    model->selection().setSelectedProjectID(garden);
    write("planted", "");
    const auto gone = write("dug out", "");
    moveToTrash(gone);
    EXPECT_EQ(titles(), (Titles{ "planted" }));
    model->selection().setSelectedProjectID(std::nullopt);
    EXPECT_EQ(titles(), (Titles{ "planted", "loose" }));
    model->selection().setShowingTrash(true);
    EXPECT_EQ(titles(), (Titles{ "dug out" }));
}

TEST_F(NoteSelectionTest, ASearchRunsBesideAndTheLastOneWins)
{
    open();
    write("balcony", "");
    write("kitchen", "the fern moves here");
    model->selection().setQuery("balc");
    EXPECT_EQ(titles(), (Titles{ "kitchen", "balcony" })); // until it is done
    model->selection().setQuery("fern");
    ASSERT_TRUE(eventually([&] { return titles() == Titles{ "kitchen" }; }));
    model->selection().setQuery("FERN MOV");
    model->selection().setQuery("");
    EXPECT_EQ(titles(), (Titles{ "kitchen", "balcony" })); // at once
    drainEvents();
    EXPECT_EQ(titles(), (Titles{ "kitchen", "balcony" }));
}

TEST_F(NoteSelectionTest, ASearchFollowsTheLibrary)
{
    open();
    const auto id = write("balcony", "");
    model->selection().setQuery("fern");
    ASSERT_TRUE(eventually([&] { return titles().empty(); }));
    awaited(savedEdit(id, { "fern", "", "" }));
    EXPECT_TRUE(eventually([&] { return titles() == Titles{ "fern" }; }));
}

TEST_F(NoteSelectionTest, ANoteThatIsFilteredOutStaysSelected)
{
    open();
    const auto id = write("balcony", "");
    model->selection().setSelectedNoteID(id);
    model->selection().setQuery("nothing like it");
    ASSERT_TRUE(eventually([&] { return !model->selection().selectedNote(); }));
    EXPECT_EQ(model->selection().selectedNoteID(), id);
    model->selection().setQuery("");
    EXPECT_EQ(model->selection().selectedNote()->id, id);
}

TEST_F(NoteSelectionTest, SeveralAreSelectedOneByOneAndFromOneToAnother)
{
    open();
    const auto d = write("d", "");
    const auto c = write("c", "");
    const auto b = write("b", "");
    const auto a = write("a", ""); // shown first
    auto& selection = model->selection();
    selection.setSelectedNoteID(b);
    EXPECT_EQ(selection.selectedNote()->id, b);

    selection.toggle(d);
    EXPECT_EQ(selected(), (Titles{ "b", "d" }));
    EXPECT_EQ(selection.selectedNoteID(), d);
    EXPECT_EQ(selection.selectedNote(), nullptr); // there is no such one
    selection.toggle(d);
    EXPECT_EQ(selected(), (Titles{ "b" }));
    EXPECT_EQ(selection.selectedNote()->id, b);
    selection.toggle(b); // the last one stays
    EXPECT_EQ(selected(), (Titles{ "b" }));

    selection.extendTo(d);
    EXPECT_EQ(selected(), (Titles{ "b", "c", "d" }));
    EXPECT_EQ(selection.selectedNoteID(), d);
    selection.extendTo(a); // from where it began, not from where it ended
    EXPECT_EQ(selected(), (Titles{ "a", "b" }));
    selection.extendTo(b);
    EXPECT_EQ(selection.selectedNote()->id, b);

    selection.selectAll();
    EXPECT_EQ(selected(), (Titles{ "a", "b", "c", "d" }));
    EXPECT_EQ(selection.selectedNoteID(), b);
    selection.setSelectedNoteID(c);
    EXPECT_EQ(selected(), (Titles{ "c" }));
}

TEST_F(NoteSelectionTest, ARangeBeginsAnewWhereItsBeginningIsGone)
{
    open();
    const auto b = write("b", "");
    const auto a = write("a", "");
    model->selection().setSelectedNoteID(a);
    moveToTrash(a);
    model->selection().extendTo(b);
    EXPECT_EQ(selected(), (Titles{ "b" }));
    model->selection().extendTo(Uuid::random());
    EXPECT_EQ(selected(), (Titles{ "b" }));
}

TEST_F(NoteSelectionTest, SeveralAreSelectedNoLongerWhenAnotherPlaceIsShown)
{
    open();
    const auto garden = makeProject("Garden");
    const struct {
        const char* what;
        std::function<void()> go;
    } ways[] = {
        { "a project", [&] { model->selection().setSelectedProjectID(garden); } },
        { "the Trash", [&] { model->selection().setShowingTrash(true); } },
        { "a search", [&] { model->selection().setQuery("b"); } },
    };
    const auto b = write("b", "");
    write("a", "");
    for (const auto& way : ways) {
        model->selection().setSelectedProjectID(std::nullopt);
        model->selection().setShowingTrash(false);
        model->selection().setQuery({});
        model->selection().selectAll();
        model->selection().extendTo(b);
        way.go();
        EXPECT_EQ(model->selection().selectedNoteIDs(), std::set{ b }) << way.what;
    }
}

TEST_F(NoteSelectionTest, WhatIsRevealedIsShownWhereverItIs)
{
    open();
    const auto garden = makeProject("Garden");
    const auto id = write("loose", "");
    model->selection().setSelectedProjectID(garden);
    const auto planted = write("planted", "");
    model->selection().setQuery("nothing like it");
    model->selection().reveal({ planted });
    EXPECT_EQ(titles(), (Titles{ "planted" }));
    model->selection().reveal({ planted, id });
    EXPECT_EQ(selected(), (Titles{ "planted", "loose" }));
}

TEST_F(NoteSelectionTest, TheEndOfTheProgramUnderASearchIsNoHarm)
{
    open();
    write("balcony", "");
    model->selection().setQuery("b");
    model.reset();
}

} // namespace

} // namespace vesko
