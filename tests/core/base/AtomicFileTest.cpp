#include "VeskoCore/base/AtomicFile.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <sys/wait.h>

namespace vesko {
namespace {

using Fault = FailingFileSystem::Fault;

class AtomicFileTest : public testing::TestWithParam<bool> {
protected:
    AtomicFile file(FileSystem& files)
    {
        return GetParam() ? AtomicFile(files, path, backup) : AtomicFile(files, path);
    }
    std::set<std::string> names() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            names.insert(entry.path().filename());
        return names;
    }
    // What stands in the folder when nothing is left over.
    std::set<std::string> tidy(bool withBackup) const
    {
        return GetParam() && withBackup ? std::set<std::string>{ "file", "backup" }
                                        : std::set<std::string>{ "file" };
    }

    const TemporaryFolder folder;
    const std::filesystem::path path = folder.path() / "file";
    const std::filesystem::path backup = folder.path() / "backup";
};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutBackup, AtomicFileTest, testing::Bool(),
    [](const auto& info) { return info.param ? "WithBackup" : "WithoutBackup"; });

TEST_P(AtomicFileTest, WritesAFileForTheOwnerAlone)
{
    // Given a mask that would take even the owner's right
    const auto mask = umask(0777);
    file(FileSystem::posix()).write("new");
    umask(mask);
    EXPECT_EQ(bytesOf(path), "new");
    EXPECT_EQ(permissionsOf(path), 0600);
    EXPECT_EQ(names(), tidy(false));
}

TEST_P(AtomicFileTest, ReplacesTheFileAndKeepsTheContentBeforeItAsTheBackup)
{
    auto document = file(FileSystem::posix());
    document.write("first");
    document.write("second");
    EXPECT_EQ(names(), tidy(true));
    document.write("third");
    EXPECT_EQ(bytesOf(path), "third");
    EXPECT_EQ(document.open(100)->text(), "third");
    if (GetParam()) {
        EXPECT_EQ(bytesOf(backup), "second");
        EXPECT_EQ(permissionsOf(backup), 0600);
    }
}

TEST_P(AtomicFileTest, ABackupIsNoLongerTheFileItself)
{
    auto document = file(FileSystem::posix());
    document.write("first");
    document.write("second");
    putBytes(path, "edited by hand");
    if (GetParam()) {
        EXPECT_EQ(bytesOf(backup), "first");
    }
}

TEST_P(AtomicFileTest, TakesAwayTheRightsOfOthersFromFileAndBackup)
{
    putBytes(path, "old");
    std::filesystem::permissions(path, std::filesystem::perms(0644));
    file(FileSystem::posix()).write("new");
    EXPECT_EQ(permissionsOf(path), 0600);
    if (GetParam()) {
        EXPECT_EQ(permissionsOf(backup), 0600);
    }
}

TEST_P(AtomicFileTest, WritesPieceByPiece)
{
    file(FileSystem::posix()).write([](const AtomicFile::Output& output) {
        output("one");
        output("");
        output(std::string(1'000'000, 'x'));
    });
    EXPECT_EQ(bytesOf(path), "one" + std::string(1'000'000, 'x'));
}

TEST_P(AtomicFileTest, AProducerThatThrowsChangesNothing)
{
    auto document = file(FileSystem::posix());
    document.write("first");
    document.write("second");
    const auto before = contentOf(folder.path());
    EXPECT_THROW(document.write([](const AtomicFile::Output& output) {
        output("half");
        throw std::logic_error("no more");
    }),
        std::logic_error);
    EXPECT_EQ(contentOf(folder.path()), before);
}

TEST_P(AtomicFileTest, ClearsWhatAKilledWriterLeft)
{
    putBytes(path, "old");
    for (const auto* name : { "file.tmp", "file.previous", "file.previous.tmp", "backup.tmp" })
        putBytes(folder.path() / name, "rubbish");
    std::filesystem::permissions(folder.path() / "file.tmp", std::filesystem::perms(0666));
    file(FileSystem::posix()).write("new");
    EXPECT_EQ(bytesOf(path), "new");
    EXPECT_EQ(permissionsOf(path), 0600);
    EXPECT_FALSE(names().contains("file.tmp"));
    EXPECT_FALSE(names().contains(GetParam() ? "backup.tmp" : "file.previous"));
}

TEST_P(AtomicFileTest, WritesThroughNoLinkThatStandsInATemporaryPlace)
{
    putBytes(path, "old");
    putBytes(folder.path() / "victim", "precious");
    for (const auto* name :
        { "file.tmp", "file.previous", "file.previous.tmp", "backup", "backup.tmp" })
        std::filesystem::create_symlink(folder.path() / "victim", folder.path() / name);
    std::filesystem::permissions(folder.path() / "victim", std::filesystem::perms(0644));
    file(FileSystem::posix()).write("new");
    EXPECT_EQ(bytesOf(folder.path() / "victim"), "precious");
    EXPECT_EQ(permissionsOf(folder.path() / "victim"), 0644);
    EXPECT_EQ(bytesOf(path), "new");
}

TEST_P(AtomicFileTest, RefusesToReplaceWhatIsNoRegularFile)
{
    putBytes(folder.path() / "victim", "precious");
    for (const std::string kind : { "link", "dangling link", "folder", "pipe" }) {
        SCOPED_TRACE(kind);
        std::filesystem::remove_all(path);
        if (kind == "link")
            std::filesystem::create_symlink(folder.path() / "victim", path);
        if (kind == "dangling link")
            std::filesystem::create_symlink("nowhere", path);
        if (kind == "folder")
            std::filesystem::create_directory(path);
        if (kind == "pipe")
            ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
        const auto before = names();
        EXPECT_THROW(file(FileSystem::posix()).write("new"), std::system_error);
        EXPECT_THROW(file(FileSystem::posix()).open(100), std::system_error);
        EXPECT_EQ(names(), before);
        EXPECT_EQ(bytesOf(folder.path() / "victim"), "precious");
    }
}

TEST_P(AtomicFileTest, CopiesWhereTheFileSystemHasNoLinks)
{
    FailingFileSystem files;
    files.hasLinks = false;
    auto document = file(files);
    document.write("first");
    document.write("second");
    EXPECT_EQ(bytesOf(path), "second");
    EXPECT_EQ(names(), tidy(true));
    if (GetParam()) {
        EXPECT_EQ(bytesOf(backup), "first");
        EXPECT_EQ(permissionsOf(backup), 0600);
    }
}

TEST_P(AtomicFileTest, AFileSystemThatCannotSyncFoldersIsGoodEnough)
{
    FailingFileSystem files;
    files.syncsFolders = false;
    file(files).write("new");
    EXPECT_EQ(bytesOf(path), "new");
}

// Every call of a write fails in turn: then the old content stands and the caller is told, or the
// new content stands and the caller is not.
TEST_P(AtomicFileTest, FileAndCallerAgreeWhicheverCallFails)
{
    for (const bool hasLinks : { true, false })
        for (const bool present : { true, false })
            for (const int number : { ENOSPC, EIO, EACCES }) {
                FailingFileSystem files;
                files.hasLinks = hasLinks;
                files.fault = Fault::error;
                files.number = number;
                for (files.at = 0;; ++files.at) {
                    SCOPED_TRACE(std::to_string(files.at) + " links " + std::to_string(hasLinks)
                        + " present " + std::to_string(present));
                    for (const auto& name : names())
                        std::filesystem::remove(folder.path() / name);
                    if (present) {
                        file(FileSystem::posix()).write("older");
                        file(FileSystem::posix()).write("old");
                    }
                    files.calls = 0;
                    bool told = false;
                    try {
                        file(files).write("new");
                    } catch (const std::system_error& error) {
                        told = true;
                        EXPECT_EQ(error.code().value(), number);
                    }
                    if (told)
                        EXPECT_EQ(bytesOf(path), present ? "old" : "");
                    else
                        EXPECT_EQ(bytesOf(path), "new");
                    EXPECT_EQ(std::filesystem::exists(path), present || !told);
                    if (GetParam() && present) {
                        EXPECT_THAT((std::set<std::string>{ "older", "old" }),
                            testing::Contains(bytesOf(backup)));
                    }
                    // And whatever stays behind is gone with the next write.
                    file(FileSystem::posix()).write("next");
                    EXPECT_EQ(bytesOf(path), "next");
                    for (const auto& name : names())
                        EXPECT_FALSE(name.ends_with(".tmp")) << name;
                    if (files.calls <= files.at)
                        break; // the write was over before the fault's turn came
                }
                EXPECT_GT(files.at, 6);
            }
}

TEST_P(AtomicFileTest, AShortWriteIsCarriedOn)
{
    FailingFileSystem files;
    files.fault = Fault::shortWrite;
    for (files.at = 0;; ++files.at) {
        files.calls = 0;
        file(files).write(std::string("content") + std::to_string(files.at));
        EXPECT_EQ(bytesOf(path), "content" + std::to_string(files.at));
        if (files.calls <= files.at)
            break;
    }
}

TEST_P(AtomicFileTest, OldOrNewContentStandsWhereverTheProcessDies)
{
    for (const auto fault : { Fault::deathBefore, Fault::deathWithin }) {
        bool sawOld = false, sawNew = false;
        for (int at = 0;; ++at) {
            SCOPED_TRACE(at);
            file(FileSystem::posix()).write("older");
            file(FileSystem::posix()).write("old");
            const pid_t child = fork();
            if (child == 0) {
                FailingFileSystem files;
                files.fault = fault;
                files.at = at;
                file(files).write("new");
                _exit(files.calls <= at ? 1 : 0);
            }
            int status = 0;
            waitpid(child, &status, 0);
            const auto content = bytesOf(path);
            sawOld |= content == "old";
            sawNew |= content == "new";
            EXPECT_TRUE(content == "old" || content == "new") << content;
            if (GetParam()) {
                EXPECT_TRUE(bytesOf(backup) == "old" || bytesOf(backup) == "older");
                // The content before is in one of the two files.
                EXPECT_TRUE(content == "old" || bytesOf(backup) == "old");
            }
            if (WEXITSTATUS(status) == 1)
                break;
        }
        EXPECT_TRUE(sawOld);
        EXPECT_TRUE(sawNew);
    }
}

} // namespace
} // namespace vesko
