// The library is opened beside the main thread, which may take a while.

#include "tests/app/capture/AppModelTest.h"
#include "tests/fakes/Files.h"

namespace vesko {

namespace {

class OpeningTest : public AppModelTest {
protected:
    std::string title() const { return model->phaseTitle().toStdString(); }
};

TEST_F(OpeningTest, IsNotToldOfForAMoment)
{
    slowDisk();
    start();
    machine.clock.turn(0.19);
    EXPECT_FALSE(model->libraryOpening());
    EXPECT_EQ(title(), "Ready");
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    machine.clock.turn(1);
    EXPECT_FALSE(model->libraryOpening());
}

TEST_F(OpeningTest, IsToldOfWhenItTakesLonger)
{
    slowDisk();
    start();
    std::vector<std::string> titles;
    QObject::connect(model.get(), &AppModel::phaseTitleChanged, [&] { titles.push_back(title()); });
    machine.clock.turn(0.2);
    EXPECT_TRUE(model->libraryOpening());
    machine.clock.turn(60);
    EXPECT_FALSE(model->libraryReady());
    model->toggleDictation();
    model->newNote();
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    drainEvents();
    EXPECT_FALSE(model->libraryOpening());
    EXPECT_THAT(titles, testing::ElementsAre("Opening library…", "Ready"));
    EXPECT_TRUE(model->library().notes.empty());
}

TEST_F(OpeningTest, ComesBeforeTheRecorderIsPrepared)
{
    slowDisk();
    start();
    drainEvents();
    EXPECT_EQ(machine.recorder.preparations, 0);
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    EXPECT_EQ(machine.recorder.preparations, 1);
}

TEST_F(OpeningTest, IsOverWhenItFails)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", "no library");
    slowDisk();
    start();
    machine.clock.turn(0.2);
    EXPECT_TRUE(model->libraryOpening());
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return !model->errorMessage().empty(); }));
    EXPECT_FALSE(model->libraryOpening());
    EXPECT_FALSE(model->libraryReady());
    EXPECT_EQ(title(), "Ready");
    machine.clock.turn(1);
    EXPECT_FALSE(model->libraryOpening());
}

TEST_F(OpeningTest, LeavesNothingBehindWhenTheProgramEndsMeanwhile)
{
    slowDisk();
    start();
    hurryDisk();
    model.reset();
    EXPECT_EQ(machine.clock.armed(), 0U);
}

} // namespace

} // namespace vesko
