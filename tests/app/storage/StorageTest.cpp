#include "VeskoApp/storage/Storage.h"

#include "tests/app/library/LibraryTest.h"
#include "tests/fakes/Files.h"

namespace vesko {
namespace {

struct StorageTest : LibraryTest {
    static constexpr double day = 24.0 * 60 * 60;

    Storage& storage() { return model->storage(); }
    const Recording& recording(const Uuid& id) const { return note(id).recordings.at(0); }
    std::filesystem::path audio(const Uuid& id) const
    {
        return root() / "recordings" / recording(id).fileName;
    }
    Uuid heard(const std::string& title)
    {
        const auto id = write(title, "");
        hear(id, "hello");
        if (!std::filesystem::exists(audio(id)))
            putBytes(audio(id), "sound");
        return id;
    }
    void restart()
    {
        model.reset();
        open();
    }
};

TEST_F(StorageTest, NothingGoesWithoutTheSetting)
{
    open();
    const auto id = heard("old");
    moveToTrash(write("trashed", ""));
    machine.clock.turn(4000 * day);
    restart();
    machine.clock.turn(day);
    drainEvents();
    EXPECT_EQ(storage().recordingAge(), QStringLiteral("never"));
    EXPECT_EQ(storage().trashAge(), QStringLiteral("never"));
    EXPECT_FALSE(recording(id).audioRemovedAt);
    EXPECT_TRUE(std::filesystem::exists(audio(id)));
    EXPECT_EQ(model->library().contents().notes.size(), 2U);
}

TEST_F(StorageTest, OldAudioGoesAtOnceAndLaterOnAsItGrowsOld)
{
    open();
    const auto old = heard("old");
    machine.clock.turn(31 * day);
    const auto young = heard("young");
    storage().setRecordingAge(QStringLiteral("30"));
    ASSERT_TRUE(eventually([&] { return !std::filesystem::exists(audio(old)); }));
    drainEvents();
    EXPECT_TRUE(recording(old).audioRemovedAt);
    EXPECT_EQ(note(old).body, "hello");
    EXPECT_TRUE(std::filesystem::exists(audio(young)));

    machine.clock.turn(31 * day);
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(audio(young)); }));
}

TEST_F(StorageTest, WhatAKilledProgramDidNotRemoveGoesAtTheNextStart)
{
    open();
    const auto id = heard("old");
    machine.clock.turn(31 * day);
    storage().setRecordingAge(QStringLiteral("30"));
    ASSERT_TRUE(eventually([&] { return !std::filesystem::exists(audio(id)); }));
    storage().setRecordingAge(QStringLiteral("never"));
    drainEvents();
    const auto file = audio(id);
    putBytes(file, "as if it had been killed before");
    restart();
    EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(file); }));
}

TEST_F(StorageTest, TheTrashIsEmptiedByHand)
{
    open();
    const auto kept = write("kept", "");
    const auto gone = heard("gone");
    const auto file = audio(gone);
    moveToTrash(gone);
    storage().emptyTrash();
    ASSERT_TRUE(eventually([&] { return !model->library().note(gone); }));
    EXPECT_TRUE(model->library().note(kept));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(StorageTest, TheTrashIsEmptiedOfWhatIsOldIfSet)
{
    open();
    const auto old = write("old", "");
    moveToTrash(old);
    machine.clock.turn(31 * day);
    const auto young = write("young", "");
    moveToTrash(young);
    storage().setTrashAge(QStringLiteral("30"));
    ASSERT_TRUE(eventually([&] { return !model->library().note(old); }));
    EXPECT_TRUE(model->library().note(young));
}

TEST_F(StorageTest, TheRoomIsMeasured)
{
    open();
    EXPECT_EQ(storage().size(), QString());
    const auto id = heard("old");
    putBytes(audio(id), std::string(3 << 20, 's'));
    storage().measure();
    EXPECT_TRUE(eventually([&] { return storage().size() == QStringLiteral("3.00 MiB"); }));
}

TEST_F(StorageTest, AnAgeThatNobodyKnowsRemovesNothing)
{
    choose("removeRecordingsAfter", std::string("-1"));
    choose("emptyTrashAfter", std::string("0"));
    open();
    EXPECT_EQ(storage().recordingAge(), QStringLiteral("never"));
    EXPECT_EQ(storage().trashAge(), QStringLiteral("never"));
}

} // namespace
} // namespace vesko
