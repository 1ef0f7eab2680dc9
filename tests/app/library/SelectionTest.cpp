// Which notes are shown, and which of them is selected.

#include "tests/app/library/LibraryTest.h"

namespace vesko {

namespace {

class SelectionTest : public LibraryTest {
protected:
    std::vector<std::string> titles() const
    {
        std::vector<std::string> shown;
        for (const auto& note : model->visibleNotes())
            shown.push_back(note.title);
        return shown;
    }
    using Titles = std::vector<std::string>;
};

TEST_F(SelectionTest, TheNewestChangeComesFirst)
{
    open();
    const auto first = write("one", "");
    write("two", "");
    EXPECT_EQ(titles(), (Titles{ "two", "one" }));
    machine.clock.turn(1);
    awaited(model->editNote(first, { "one again", "", "" }));
    EXPECT_EQ(titles(), (Titles{ "one again", "two" }));
}

TEST_F(SelectionTest, AProjectAndTheTrashShowTheirOwn)
{
    open();
    const auto garden = makeProject("Garden");
    write("loose", "");
    model->setSelectedProjectID(garden);
    write("planted", "");
    const auto gone = write("dug out", "");
    moveToTrash(gone);
    EXPECT_EQ(titles(), (Titles{ "planted" }));
    model->setSelectedProjectID(std::nullopt);
    EXPECT_EQ(titles(), (Titles{ "planted", "loose" }));
    model->setShowingTrash(true);
    EXPECT_EQ(titles(), (Titles{ "dug out" }));
}

TEST_F(SelectionTest, ASearchRunsBesideAndTheLastOneWins)
{
    open();
    write("balcony", "");
    write("kitchen", "the fern moves here");
    model->setQuery("balc");
    EXPECT_EQ(titles(), (Titles{ "kitchen", "balcony" })); // until it is done
    model->setQuery("fern");
    ASSERT_TRUE(eventually([&] { return titles() == Titles{ "kitchen" }; }));
    model->setQuery("FERN MOV");
    model->setQuery("");
    EXPECT_EQ(titles(), (Titles{ "kitchen", "balcony" })); // at once
    drainEvents();
    EXPECT_EQ(titles(), (Titles{ "kitchen", "balcony" }));
}

TEST_F(SelectionTest, ASearchFollowsTheLibrary)
{
    open();
    const auto id = write("balcony", "");
    model->setQuery("fern");
    ASSERT_TRUE(eventually([&] { return titles().empty(); }));
    awaited(model->editNote(id, { "fern", "", "" }));
    EXPECT_TRUE(eventually([&] { return titles() == Titles{ "fern" }; }));
}

TEST_F(SelectionTest, ANoteThatIsFilteredOutStaysSelected)
{
    open();
    const auto id = write("balcony", "");
    model->setSelectedNoteID(id);
    model->setQuery("nothing like it");
    ASSERT_TRUE(eventually([&] { return !model->selectedNote(); }));
    EXPECT_EQ(model->selectedNoteID(), id);
    model->setQuery("");
    EXPECT_EQ(model->selectedNote()->id, id);
}

TEST_F(SelectionTest, TheEndOfTheProgramUnderASearchIsNoHarm)
{
    open();
    write("balcony", "");
    model->setQuery("b");
    model.reset();
}

} // namespace

} // namespace vesko
