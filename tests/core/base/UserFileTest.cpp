#include "VeskoCore/base/UserFile.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace vesko {
namespace {

using Fault = FailingFileSystem::Fault;

class UserFileTest : public testing::Test {
protected:
    static void write(const std::filesystem::path& file, std::string_view bytes)
    {
        writeUserFile(FileSystem::posix(), file, bytes);
    }

    const TemporaryFolder folder;
    const std::filesystem::path path = folder.path() / "plan.md";
};

// An export to "plan.md" once cost the user what stood beside it.
TEST_F(UserFileTest, LeavesEveryOtherFileOfTheFolderAlone)
{
    std::map<std::string, std::string> expected;
    for (const auto* name : { "plan.md.tmp", "plan.md.previous", "plan.md.previous.tmp", "plan.md~",
             ".plan.md.tmp", "plan.md.bak" }) {
        putBytes(folder.path() / name, "precious");
        expected[name] = "precious";
    }
    for (const auto* content : { "new", "newer" }) {
        write(path, content);
        expected["plan.md"] = content;
        EXPECT_EQ(contentOf(folder.path()), expected);
    }
}

TEST_F(UserFileTest, GivesANewFileWhatTheMaskLeaves)
{
    for (const mode_t mask : { 022, 077, 002 }) {
        std::filesystem::remove(path);
        const auto before = umask(mask);
        write(path, "new");
        umask(before);
        EXPECT_EQ(permissionsOf(path), 0666 & ~mask);
    }
}

TEST_F(UserFileTest, LetsAFileKeepItsPermissionsAndItsOwner)
{
    for (const int permissions : { 0644, 0600, 0664, 0400, 0755 }) {
        putBytes(path, "old");
        std::filesystem::permissions(path, std::filesystem::perms(permissions));
        // Only the superuser may give files away.
        const bool given = geteuid() == 0 && chown(path.c_str(), 1234, 2345) == 0;
        write(path, "new");
        EXPECT_EQ(bytesOf(path), "new");
        EXPECT_EQ(permissionsOf(path), permissions);
        struct stat status{};
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, given ? 1234 : geteuid());
        EXPECT_EQ(status.st_gid, given ? 2345 : getegid());
        std::filesystem::remove(path);
    }
}

TEST_F(UserFileTest, WritesWhatALinkPointsTo)
{
    const auto elsewhere = folder.path() / "elsewhere";
    std::filesystem::create_directory(elsewhere);
    std::filesystem::create_symlink("elsewhere/second", path);
    std::filesystem::create_symlink(elsewhere / "real.md", elsewhere / "second");
    for (const auto* content : { "new", "newer" }) {
        write(path, content);
        EXPECT_EQ(bytesOf(elsewhere / "real.md"), content);
        EXPECT_EQ(std::filesystem::read_symlink(path), "elsewhere/second");
        EXPECT_EQ(contentOf(folder.path()).size(), 4U);
    }
    std::filesystem::create_symlink("circle", folder.path() / "circle");
    EXPECT_THROW(write(folder.path() / "circle", "new"), std::system_error);
}

TEST_F(UserFileTest, TakesTheLongestNameThatThereIs)
{
    const auto longest = folder.path() / (std::string(252, 'x') + ".md");
    write(longest, "new");
    write(longest, "newer");
    EXPECT_EQ(bytesOf(longest), "newer");
}

TEST_F(UserFileTest, RefusesWhatIsNoFile)
{
    std::filesystem::create_directory(folder.path() / "folder");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    const auto before = contentOf(folder.path());
    for (const auto* name : { "folder", "pipe", "absent/plan.md" })
        EXPECT_THROW(write(folder.path() / name, "new"), std::system_error) << name;
    EXPECT_THROW(write("/dev/null", "new"), std::system_error);
    EXPECT_EQ(contentOf(folder.path()), before);
}

// Without hard links, since not every file system has them.
TEST_F(UserFileTest, OldOrNewContentStandsWhicheverCallFails)
{
    for (const bool present : { true, false })
        for (const auto fault : { Fault::error, Fault::errors, Fault::shortWrite }) {
            FailingFileSystem files;
            files.hasLinks = false;
            files.fault = fault;
            files.number = EIO;
            for (files.at = 0;; ++files.at) {
                SCOPED_TRACE(files.at);
                for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
                    std::filesystem::remove(entry.path());
                if (present) {
                    putBytes(path, "old");
                    std::filesystem::permissions(path, std::filesystem::perms(0640));
                }
                files.calls = 0;
                bool told = false;
                try {
                    writeUserFile(files, path, "new content");
                } catch (const std::system_error&) {
                    told = true;
                }
                const auto content = bytesOf(path);
                if (!told)
                    EXPECT_EQ(content, "new content");
                EXPECT_TRUE(content == "new content" || content == (present ? "old" : ""))
                    << content;
                if (present)
                    EXPECT_EQ(permissionsOf(path), 0640);
                if (fault != Fault::errors) // else nothing can be tidied up either
                    EXPECT_LE(contentOf(folder.path()).size(), 1U);
                if (files.calls <= files.at)
                    break;
            }
            EXPECT_GT(files.at, 6);
        }
}

TEST_F(UserFileTest, OldOrNewContentStandsWhereverTheProcessDies)
{
    for (const auto fault : { Fault::deathBefore, Fault::deathWithin })
        for (int at = 0;; ++at) {
            SCOPED_TRACE(at);
            putBytes(path, "old");
            const pid_t child = fork();
            if (child == 0) {
                FailingFileSystem files;
                files.fault = fault;
                files.at = at;
                writeUserFile(files, path, "new");
                _exit(1);
            }
            int status = 0;
            waitpid(child, &status, 0);
            const auto content = bytesOf(path);
            EXPECT_TRUE(content == "old" || content == "new") << content;
            if (WEXITSTATUS(status) == 1)
                break;
        }
}

} // namespace
} // namespace vesko
