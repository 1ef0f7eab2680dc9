#include "VeskoCore/base/Folder.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vesko {
namespace {

TEST(Folder, ShowsEachEntry)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", "");
    std::filesystem::create_directory(folder.path() / "folder");
    std::vector<std::string> names;
    eachEntry(folder.path(), [&](const auto& path) { names.push_back(path.filename()); });
    EXPECT_THAT(names, testing::UnorderedElementsAre("file", "folder"));
}

TEST(Folder, IsEmptyWhereThereIsNone)
{
    const TemporaryFolder folder;
    putBytes(folder.path() / "file", "");
    for (const auto* name : { "nothing", "file" })
        eachEntry(folder.path() / name, [](const auto& path) { ADD_FAILURE() << path; });
}

// The kernel's folder of a process's files can't be read any further once the process has ended,
// and with enough of them the first answer doesn't hold all.
TEST(Folder, EndsWhereItCannotBeReadAnyFurther)
{
    constexpr int many = 4000;
    rlimit files{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &files), 0);
    if (files.rlim_max < many + 100)
        GTEST_SKIP() << "not so many files may be open here";
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const auto process = ::fork();
    if (process == 0) {
        files.rlim_cur = files.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &files);
        for (int i = 0; i < many; ++i)
            ::open("/dev/null", O_RDONLY);
        [[maybe_unused]] const auto told = ::write(ready[1], "", 1);
        ::pause();
        ::_exit(0);
    }
    char token = 0;
    ASSERT_EQ(::read(ready[0], &token, 1), 1);
    int seen = 0;
    EXPECT_NO_THROW(eachEntry("/proc/" + std::to_string(process) + "/fd", [&](const auto&) {
        if (++seen > 1)
            return;
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
    }));
    EXPECT_GT(seen, 1);
    EXPECT_LT(seen, many);
    ::close(ready[0]);
    ::close(ready[1]);
}

} // namespace
} // namespace vesko
