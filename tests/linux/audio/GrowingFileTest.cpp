// What a loss of power leaves of a recording that grows.

#include "VeskoLinux/audio/GrowingFile.h"

#include "tests/fakes/RecordedDisk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <system_error>

namespace vesko {
namespace {

class GrowingFileTest : public testing::Test {
protected:
    std::set<std::string> afterPowerLossNow() const
    {
        std::set<std::string> found;
        for (const auto& state : disk.afterPowerLossNow())
            found.insert(state.contains("grows") ? state.at("grows") : "none");
        return found;
    }

    const TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "grows";
    RecordedDisk disk{ folder.path() };
};

TEST_F(GrowingFileTest, APowerLossLeavesWhatWasBroughtToTheDisk)
{
    disk.begin();
    const OpenFile written(disk, file, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    disk.write(written, "what was said ");
    EXPECT_TRUE(afterPowerLossNow().contains("none"));
    bringToDisk(disk, file);
    EXPECT_EQ(afterPowerLossNow(), std::set<std::string>{ "what was said " });
    disk.write(written, "more");
    EXPECT_EQ(afterPowerLossNow(),
        (std::set<std::string>{ "what was said ", "what was said mo", "what was said more" }));
}

TEST_F(GrowingFileTest, AFileThatIsGoneIsAFailure)
{
    EXPECT_THROW(bringToDisk(disk, file), std::system_error);
}

} // namespace
} // namespace vesko
