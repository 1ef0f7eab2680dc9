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

TEST_F(NoteSelectionTest, TheEndOfTheProgramUnderASearchIsNoHarm)
{
    open();
    write("balcony", "");
    model->selection().setQuery("b");
    model.reset();
}

} // namespace

} // namespace vesko
