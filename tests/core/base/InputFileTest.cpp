#include "VeskoCore/base/InputFile.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vesko {
namespace {

class InputFileTest : public testing::Test {
protected:
    // What an open file gives of itself from there on, into so much room.
    static std::string piece(InputFile& file, std::size_t room, std::uint64_t from)
    {
        std::string into(room, '?');
        into.resize(file.read(into, from));
        return into;
    }
    std::unique_ptr<InputFile> open(
        const std::string& name, std::uint64_t limit, FileSystem& files = FileSystem::posix())
    {
        return InputFile::open(files, folder.path() / name, limit);
    }

    static constexpr std::uint64_t noLimit = UINT64_MAX;
    TemporaryFolder folder;
};

TEST_F(InputFileTest, GivesTheBytesOrNothing)
{
    const std::string bytes("a\0b\xff", 4);
    putBytes(folder.path() / "file", bytes);
    putBytes(folder.path() / "empty", "");
    EXPECT_EQ(open("file", noLimit)->text(), bytes);
    EXPECT_EQ(open("empty", noLimit)->text(), "");
    EXPECT_EQ(open("none", noLimit), nullptr);
}

TEST_F(InputFileTest, GivesAnyPieceOfIt)
{
    putBytes(folder.path() / "file", "0123456789");
    const auto file = open("file", noLimit);
    EXPECT_EQ(piece(*file, 3, 0), "012");
    EXPECT_EQ(piece(*file, 3, 6), "678");
    EXPECT_EQ(piece(*file, 3, 8), "89");
    EXPECT_EQ(piece(*file, 3, 10), "");
    EXPECT_EQ(piece(*file, 3, noLimit), "");
    EXPECT_EQ(piece(*file, 0, 0), "");
    EXPECT_EQ(file->text(), "0123456789");
}

TEST_F(InputFileTest, IsNoLongerThanWhenItWasOpened)
{
    putBytes(folder.path() / "file", "01234");
    const auto file = open("file", 5);
    EXPECT_EQ(file->size(), 5U);
    std::filesystem::resize_file(folder.path() / "file", 1ULL << 40);
    EXPECT_EQ(piece(*file, 10, 3), "34");
    EXPECT_EQ(file->text(), "01234");
    std::filesystem::resize_file(folder.path() / "file", 2);
    EXPECT_EQ(piece(*file, 10, 1), "1");
    EXPECT_EQ(piece(*file, 10, 3), "");
    EXPECT_EQ(file->text(), "01");
}

TEST_F(InputFileTest, LeavesRoomForAParserThatReadsAhead)
{
    putBytes(folder.path() / "file", std::string(100'000, 'x'));
    const auto text = open("file", noLimit)->text();
    EXPECT_GE(text.capacity() - text.size(), 64U);
}

TEST_F(InputFileTest, RefusesAFileThatIsLongerThanTheLimit)
{
    putBytes(folder.path() / "file", "12345");
    EXPECT_EQ(open("file", 5)->text(), "12345");
    EXPECT_THROW(open("file", 4), std::system_error);
    std::filesystem::resize_file(folder.path() / "file", 1ULL << 40);
    EXPECT_THROW(open("file", 1 << 30), std::system_error);
}

TEST_F(InputFileTest, RefusesWhatIsNoRegularFileWithoutWaitingForIt)
{
    putBytes(folder.path() / "file", "x");
    std::filesystem::create_symlink(folder.path() / "file", folder.path() / "link");
    std::filesystem::create_symlink("/dev/zero", folder.path() / "endless");
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const auto* name : { "link", "endless", "dangling", "pipe", "" })
        EXPECT_THROW(open(name, noLimit), std::system_error) << name;
}

TEST_F(InputFileTest, ReportsAFailureOfEachCall)
{
    putBytes(folder.path() / "file", "x");
    FailingFileSystem files;
    open("file", noLimit, files)->text();
    const int closing = files.calls - 1;
    files.fault = FailingFileSystem::Fault::error;
    files.number = EIO;
    for (files.at = 0; files.at < closing; ++files.at) {
        files.calls = 0;
        EXPECT_THROW(open("file", noLimit, files)->text(), std::system_error) << files.at;
    }
}

} // namespace
} // namespace vesko
