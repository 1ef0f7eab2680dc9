#include "VeskoCore/base/FileSystem.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vesko {
namespace {

constexpr std::uint64_t noLimit = UINT64_MAX;

FileSystem& posix()
{
    return FileSystem::posix();
}

TEST(MakeFolders, MakesEachMissingFolderForTheOwnerAlone)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "a");
    std::filesystem::permissions(folder.path() / "a", std::filesystem::perms(0755));
    makeFolders(posix(), folder.path() / "a" / "b" / "c");
    EXPECT_EQ(permissionsOf(folder.path() / "a"), 0755);
    EXPECT_EQ(permissionsOf(folder.path() / "a" / "b"), 0700);
    EXPECT_EQ(permissionsOf(folder.path() / "a" / "b" / "c"), 0700);
}

TEST(MakeFolders, TakesATrailingSlashAndAFolderThatIsThere)
{
    const TemporaryFolder folder;
    makeFolders(posix(), folder.path() / "a" / "");
    makeFolders(posix(), folder.path() / "a" / "");
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "a"));
}

TEST(MakeFolders, SaysWhenSomethingElseStandsInTheWay)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", "x");
    EXPECT_THROW(makeFolders(posix(), folder.path() / "file"), std::system_error);
    EXPECT_THROW(makeFolders(posix(), folder.path() / "file" / "a"), std::system_error);
    EXPECT_EQ(bytesOf(folder.path() / "file"), "x");
}

TEST(ReadFile, GivesTheBytesOrNothing)
{
    const TemporaryFolder folder;
    const std::string bytes("a\0b\xff", 4);
    putBytes(folder.path() / "file", bytes);
    putBytes(folder.path() / "empty", "");
    EXPECT_EQ(readFile(posix(), folder.path() / "file", noLimit), bytes);
    EXPECT_EQ(readFile(posix(), folder.path() / "empty", noLimit), "");
    EXPECT_EQ(readFile(posix(), folder.path() / "none", noLimit), std::nullopt);
}

TEST(ReadFile, LeavesRoomForAParserThatReadsAhead)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", std::string(100'000, 'x'));
    const auto text = readFile(posix(), folder.path() / "file", noLimit);
    EXPECT_GE(text->capacity() - text->size(), 64U);
}

TEST(ReadFile, RefusesAFileThatIsLongerThanTheLimit)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", "12345");
    EXPECT_EQ(readFile(posix(), folder.path() / "file", 5), "12345");
    EXPECT_THROW(readFile(posix(), folder.path() / "file", 4), std::system_error);
    std::filesystem::resize_file(folder.path() / "file", 1ULL << 40);
    EXPECT_THROW(readFile(posix(), folder.path() / "file", 1 << 30), std::system_error);
}

TEST(ReadFile, RefusesWhatIsNoRegularFileWithoutWaitingForIt)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", "x");
    std::filesystem::create_symlink(folder.path() / "file", folder.path() / "link");
    std::filesystem::create_symlink("/dev/zero", folder.path() / "endless");
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const auto* name : { "link", "endless", "dangling", "pipe", "" })
        EXPECT_THROW(readFile(posix(), folder.path() / name, noLimit), std::system_error) << name;
}

TEST(ReadFile, ReportsAFailureOfEachCall)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", "x");
    FailingFileSystem files;
    readFile(files, folder.path() / "file", noLimit);
    const int closing = files.calls - 1;
    files.fault = FailingFileSystem::Fault::error;
    files.number = EIO;
    for (files.at = 0; files.at < closing; ++files.at) {
        files.calls = 0;
        EXPECT_THROW(readFile(files, folder.path() / "file", noLimit), std::system_error)
            << files.at;
    }
}

} // namespace
} // namespace vesko
