#include "VeskoApp/shell/ModelInstaller.h"

#include "tests/fakes/Files.h"
#include "tests/fakes/LoopbackServer.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <sstream>

namespace vesko {
namespace {

// A megabyte of the letter m.
constexpr auto list = R"({"models":[{"name":"base","size":"1 MiB",)"
                      R"("sha1":"83b9a483ca0505f3fd29e78a54f7b0ba860d9036","source":"s"}]})";

struct Installation {
    int status;
    std::string out, error;
};

class ModelInstallerTest : public testing::Test {
protected:
    TemporaryFolder folder;
    LoopbackServer server;

    Installation install(const std::string& name) const
    {
        std::ostringstream out, error;
        const int status = installModel(name, list, server.url() + "/", folder.path(), out, error);
        return { status, out.str(), error.str() };
    }
};

TEST_F(ModelInstallerTest, tellsWhatThereIsForANameThatIsNone)
{
    const auto installed = install("huge");
    EXPECT_EQ(installed.status, 2);
    EXPECT_EQ(installed.error, "vesko: there is no model huge\n  base, 1 MiB\n");
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(ModelInstallerTest, tellsHowFarItIsAndWhereTheModelStands)
{
    server.reply(LoopbackServer::answer(200, std::string(1 << 20, 'm')));
    const auto installed = install("base");
    EXPECT_EQ(installed.status, 0) << installed.error;
    EXPECT_TRUE(installed.out.starts_with("base, 1 MiB, from " + server.url() + "/\n"));
    EXPECT_THAT(installed.out, testing::HasSubstr("\n50 %\n"));
    EXPECT_TRUE(
        installed.out.ends_with("100 %\n" + (folder.path() / "ggml-base.bin").string() + "\n"));
    EXPECT_EQ(std::filesystem::file_size(folder.path() / "ggml-base.bin"), 1U << 20);
}

TEST_F(ModelInstallerTest, tellsWhatWentWrong)
{
    server.reply(LoopbackServer::answer(404, ""));
    const auto installed = install("base");
    EXPECT_EQ(installed.status, 1);
    EXPECT_EQ(installed.error, "The server doesn't have this model. Try again later.\n");
}

} // namespace
} // namespace vesko
