#include "VeskoCore/base/FileLock.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace vesko {
namespace {

TEST(FileLock, CreatesAnEmptyFileForTheOwnerAloneAndLeavesIt)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / ".lock";
    EXPECT_TRUE(FileLock::acquire(path));
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(permissionsOf(path), 0600);
    EXPECT_EQ(bytesOf(path), "");
}

TEST(FileLock, IsHeldByOneAtATimeWithinAProcess)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / ".lock";
    auto first = FileLock::acquire(path);
    ASSERT_TRUE(first);
    EXPECT_FALSE(FileLock::acquire(path));
    {
        const FileLock moved(std::move(*first));
        first.reset();
        EXPECT_FALSE(FileLock::acquire(path));
    }
    EXPECT_TRUE(FileLock::acquire(path));
}

TEST(FileLock, ExcludesAnotherProcessUntilItDies)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / ".lock";
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto lock = FileLock::acquire(path);
        const char answer = lock ? 'y' : 'n';
        if (write(ready[1], &answer, 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_FALSE(FileLock::acquire(path));

    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(FileLock::acquire(path));
    close(ready[0]);
    close(ready[1]);
}

TEST(FileLock, IsGivenBackThoughAChildInheritedTheDescriptor)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / ".lock";
    auto lock = FileLock::acquire(path);
    const pid_t child = fork();
    if (child == 0)
        for (;;)
            pause();
    lock.reset();
    EXPECT_TRUE(FileLock::acquire(path));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

// Someone tidies up, and makes room for a second writer.
TEST(FileLock, HoldsThoughItsFileWasRemoved)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / ".lock";
    auto first = FileLock::acquire(path);
    ASSERT_TRUE(first);
    std::filesystem::remove(path);
    EXPECT_FALSE(FileLock::acquire(path));
    putBytes(path, "");
    EXPECT_FALSE(FileLock::acquire(path));
    first.reset();
    EXPECT_TRUE(FileLock::acquire(path));
}

TEST(FileLock, OfOneFolderSaysNothingOfAnother)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "within");
    const auto outer = FileLock::acquire(folder.path() / ".lock");
    EXPECT_TRUE(outer);
    EXPECT_TRUE(FileLock::acquire(folder.path() / "within" / ".lock"));
}

TEST(FileLock, SaysWhenTheFileCannotBeOpened)
{
    const TemporaryFolder folder;
    EXPECT_THROW(FileLock::acquire(folder.path()), std::system_error);
    EXPECT_THROW(FileLock::acquire(folder.path() / "none" / ".lock"), std::system_error);
    std::filesystem::create_symlink(folder.path() / "elsewhere", folder.path() / "link");
    EXPECT_THROW(FileLock::acquire(folder.path() / "link"), std::system_error);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "elsewhere"));
}

} // namespace
} // namespace vesko
