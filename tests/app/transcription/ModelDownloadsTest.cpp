// A model comes at the user's word, and stays where it stopped.

#include "VeskoApp/transcription/ModelDownloads.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/LoopbackServer.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vesko {

namespace {

// A megabyte of the letter m.
constexpr auto list = R"({"models":[{"name":"base","size":"1 MiB",)"
                      R"("sha1":"83b9a483ca0505f3fd29e78a54f7b0ba860d9036","source":"s"}]})";

class ModelDownloadsTest : public testing::Test {
protected:
    ModelDownloadsTest() { putBytes(folder.path() / "list.json", list); }

    void get() { downloads.get(QStringLiteral("base")); }
    void waitForTheEnd()
    {
        ASSERT_TRUE(eventually([&] { return !downloads.loading(); }));
    }
    std::string message() const { return downloads.message().toStdString(); }

    TemporaryFolder folder;
    LoopbackServer server;
    ModelDownloads downloads{ { folder.path() / "list.json", server.url() + "/",
        folder.path() / "models" } };
};

TEST_F(ModelDownloadsTest, TheListTellsTheSizes)
{
    ASSERT_EQ(downloads.models().size(), 1);
    EXPECT_EQ(downloads.models()[0].toMap()[QStringLiteral("name")], QStringLiteral("base, 1 MiB"));
}

TEST_F(ModelDownloadsTest, AModelArrives)
{
    int arrived = 0;
    QObject::connect(&downloads, &ModelDownloads::arrived, [&] { ++arrived; });
    server.reply(LoopbackServer::answer(200, std::string(1 << 20, 'm')));
    get();
    EXPECT_TRUE(downloads.loading());
    EXPECT_EQ(message(), "Loading base: 0 %");
    waitForTheEnd();
    EXPECT_EQ(message(), "The model base is there.");
    EXPECT_EQ(arrived, 1);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "models/ggml-base.bin"));
}

TEST_F(ModelDownloadsTest, AFailureIsTold)
{
    server.reply(LoopbackServer::answer(404, ""));
    get();
    waitForTheEnd();
    EXPECT_EQ(message(), "The server doesn't have this model. Try again later.");
}

TEST_F(ModelDownloadsTest, APauseEndsItAndItGoesOnLater)
{
    server.reply({ .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 1048576\r\n\r\nmmm" });
    get();
    ASSERT_TRUE(eventually([&] { return !server.requests().empty(); }));
    downloads.pause();
    EXPECT_FALSE(downloads.loading());
    EXPECT_EQ(message(), "The download was paused. What has arrived is kept.");
    server.reply(LoopbackServer::answer(200, std::string(1 << 20, 'm')));
    get();
    waitForTheEnd();
    EXPECT_EQ(message(), "The model base is there.");
}

TEST_F(ModelDownloadsTest, NothingIsOfferedWithoutAListOrAnAddress)
{
    EXPECT_TRUE(ModelDownloads({ folder.path() / "none", server.url(), {} }).models().isEmpty());
    EXPECT_TRUE(ModelDownloads({ folder.path() / "list.json", "", {} }).models().isEmpty());
    downloads.get(QStringLiteral("huge"));
    EXPECT_FALSE(downloads.loading());
}

} // namespace

} // namespace vesko
