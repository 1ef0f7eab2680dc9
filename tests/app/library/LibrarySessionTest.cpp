// The library is opened beside the main thread, which may take a while.

#include "tests/app/AppModelTest.h"
#include "tests/fakes/Files.h"

namespace vesko {

namespace {

class LibrarySessionTest : public AppModelTest {
protected:
    std::string title() const { return model->capture().phaseTitle().toStdString(); }
};

TEST_F(LibrarySessionTest, IsNotToldOfForAMoment)
{
    slowDisk();
    start();
    machine.clock.turn(0.19);
    EXPECT_FALSE(model->library().opening());
    EXPECT_EQ(title(), "Ready");
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    machine.clock.turn(1);
    EXPECT_FALSE(model->library().opening());
}

TEST_F(LibrarySessionTest, IsToldOfWhenItTakesLonger)
{
    slowDisk();
    start();
    std::vector<std::string> titles;
    QObject::connect(
        &model->capture(), &Capture::phaseTitleChanged, [&] { titles.push_back(title()); });
    machine.clock.turn(0.2);
    EXPECT_TRUE(model->library().opening());
    machine.clock.turn(60);
    EXPECT_FALSE(model->library().ready());
    model->capture().toggleDictation();
    model->notes().newNote();
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    drainEvents();
    EXPECT_FALSE(model->library().opening());
    EXPECT_THAT(titles, testing::ElementsAre("Opening library…", "Ready"));
    EXPECT_TRUE(model->library().contents().notes.empty());
}

TEST_F(LibrarySessionTest, ComesBeforeTheRecorderIsPrepared)
{
    slowDisk();
    start();
    drainEvents();
    EXPECT_EQ(machine.recorder.preparations, 0);
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_EQ(machine.recorder.preparations, 1);
}

TEST_F(LibrarySessionTest, IsOverWhenItFails)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", "no library");
    slowDisk();
    start();
    machine.clock.turn(0.2);
    EXPECT_TRUE(model->library().opening());
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_FALSE(model->library().opening());
    EXPECT_FALSE(model->library().ready());
    EXPECT_EQ(title(), "Ready");
    EXPECT_EQ(
        model->library().refusal(), VeskoError(VeskoError::corruptLibrary).errorDescription());
    machine.clock.turn(1);
    EXPECT_FALSE(model->library().opening());
}

TEST_F(LibrarySessionTest, LeavesNothingBehindWhenTheProgramEndsMeanwhile)
{
    slowDisk();
    start();
    hurryDisk();
    model.reset();
    EXPECT_EQ(machine.clock.armed(), 0U);
}

// Runs a change to its end.
template <class Operation>
auto changed(LibrarySession& library, Operation operation)
{
    return awaited(library.change(std::move(operation)));
}

TEST_F(LibrarySessionTest, AChangeGivesItsResultAndTheCopyHasItByThen)
{
    open();
    int told = 0;
    QObject::connect(&model->library(), &LibrarySession::changed, [&] { ++told; });
    const auto made = changed(
        model->library(), [](LibraryStore& store) { return store.createProject("Garden"); });
    ASSERT_TRUE(made.has_value());
    EXPECT_EQ(made->name, "Garden");
    ASSERT_EQ(model->library().contents().projects.size(), 1U);
    EXPECT_EQ(model->library().contents().projects[0], *made);
    EXPECT_EQ(told, 1);
}

TEST_F(LibrarySessionTest, AChangeThatFailsGivesItsReasonAndTheCopyShowsWhatStands)
{
    open();
    const auto outcome = changed(model->library(), [](LibraryStore& store) {
        store.createProject("Garden");
        store.createProject("garden");
    });
    ASSERT_FALSE(outcome.has_value());
    EXPECT_THROW(std::rethrow_exception(outcome.error()), VeskoError);
    EXPECT_EQ(model->library().contents().projects.size(), 1U);
    EXPECT_EQ(model->status().errorMessage(), ""); // telling the user is the caller's
}

TEST_F(LibrarySessionTest, BeforeTheLibraryIsReadyNothingIsChanged)
{
    slowDisk();
    start();
    const auto outcome
        = changed(model->library(), [](LibraryStore& store) { store.createProject("Garden"); });
    EXPECT_FALSE(outcome.has_value());
    model->library().apply([](LibraryStore& store) { store.createProject("Garden"); });
    EXPECT_EQ(model->status().errorMessage(), "");
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_TRUE(model->library().contents().projects.empty());
}

TEST_F(LibrarySessionTest, AnErrorAboutTheDiskGoesWithTheNextSaveThatWorks)
{
    open();
    breakStore();
    model->library().apply([](LibraryStore& store) { store.createProject("Garden"); });
    ASSERT_TRUE(eventually([&] { return model->status().errorMessage() == storageText; }));
    repairStore();
    ASSERT_TRUE(changed(model->library(), [](LibraryStore& store) {
        store.createProject("Garden");
    }).has_value());
    EXPECT_EQ(model->status().errorMessage(), "");
}

} // namespace

} // namespace vesko
