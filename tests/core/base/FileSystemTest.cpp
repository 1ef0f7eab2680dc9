#include "VeskoCore/base/FileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

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

} // namespace
} // namespace vesko
