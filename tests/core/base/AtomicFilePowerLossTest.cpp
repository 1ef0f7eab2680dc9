// What a document's file holds after a loss of power, at every moment of a save and whatever of it
// had reached the disk by then.

#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/UserFile.h"
#include "tests/fakes/RecordedDisk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class AtomicFilePowerLossTest : public testing::TestWithParam<bool> {
protected:
    AtomicFile document()
    {
        return GetParam() ? AtomicFile(disk, path, backup) : AtomicFile(disk, path);
    }
    // What a file may hold afterwards; "none" for no file.
    std::set<std::string> contents(const std::string& name) const
    {
        std::set<std::string> found;
        for (const auto& state : disk.afterPowerLoss()) {
            const auto file = state.find(name);
            found.insert(file == state.end() ? "none" : file->second);
        }
        return found;
    }

    using Contents = std::set<std::string>;

    const TemporaryFolder folder;
    const std::filesystem::path path = folder.path() / "file";
    const std::filesystem::path backup = folder.path() / "backup";
    RecordedDisk disk{ folder.path() };
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutBackup, AtomicFilePowerLossTest, testing::Bool(),
    [](const auto& info) { return info.param ? "WithBackup" : "WithoutBackup"; });

TEST_P(AtomicFilePowerLossTest, LeavesTheOldContentOrTheNew)
{
    document().write("first");
    document().write("second");
    disk.begin();
    document().write("third");
    EXPECT_EQ(contents("file"), (Contents{ "second", "third" }));
    if (GetParam()) {
        EXPECT_EQ(contents("backup"), (Contents{ "first", "second" }));
    }
}

TEST_P(AtomicFilePowerLossTest, LeavesNoFileOrAWholeOneAfterTheFirstSave)
{
    disk.begin();
    document().write([](const AtomicFile::Output& output) {
        output("piece by ");
        output("piece");
    });
    EXPECT_EQ(contents("file"), (Contents{ "none", "piece by piece" }));
}

TEST_P(AtomicFilePowerLossTest, LeavesOneOfTheContentsOfSeveralSaves)
{
    document().write("first");
    disk.begin();
    document().write("second");
    document().write("third");
    EXPECT_EQ(contents("file"), (Contents{ "first", "second", "third" }));
    // And what has been saved stays.
    disk.begin();
    EXPECT_EQ(contents("file"), (Contents{ "third" }));
}

TEST_P(AtomicFilePowerLossTest, RenewsTheBackupWhole)
{
    document().write("first");
    document().write("second");
    disk.begin();
    document().renewBackup();
    EXPECT_EQ(contents("file"), (Contents{ "second" }));
    if (GetParam()) {
        EXPECT_EQ(contents("backup"), (Contents{ "first", "second" }));
    }
}

// The disk of these tests would find it.
TEST_P(AtomicFilePowerLossTest, WithoutSyncsAnythingCouldBeLeft)
{
    document().write("first");
    disk.syncs = false;
    disk.begin();
    document().write("second");
    EXPECT_EQ(contents("file"), (Contents{ "first", "", "sec", "second" }));
}

TEST_P(AtomicFilePowerLossTest, LeavesAFileOfTheUsersOldOrNew)
{
    putBytes(path, "old");
    disk.begin();
    writeUserFile(disk, path, "new");
    EXPECT_EQ(contents("file"), (Contents{ "old", "new" }));
    writeUserFile(disk, folder.path() / "another", "new");
    EXPECT_EQ(contents("another"), (Contents{ "none", "new" }));
}

} // namespace
} // namespace vesko
