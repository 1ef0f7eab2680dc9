// What the service may answer, whatever it is, ends in a batch that is kept or thrown away.

#include "tests/app/analytics/AnalyticsFixture.h"

#include "tests/fakes/HurriedTransport.h"
#include "tests/fakes/LoopbackServer.h"
#include "tests/fakes/UnprovenServer.h"

#include <cstdlib>

namespace vesko {

namespace {

using Reply = LoopbackServer::Reply;
using Then = LoopbackServer::Then;
using namespace std::chrono_literals;

enum class Batch { kept, gone };

struct Case {
    const char* what;
    Reply reply;
    Batch batch;
};

class HostileReplyTest : public AnalyticsFixture {
protected:
    HostileReplyTest() { agree(); }

    void expectAll(const std::vector<Case>& cases, const HttpTransport& transport = {})
    {
        for (const auto& [what, reply, batch] : cases) {
            SCOPED_TRACE(what);
            LoopbackServer server;
            server.reply(reply);
            bundle.baseURL = server.url();
            analytics = std::make_unique<Analytics>(
                settings, clock, bundle, Analytics::EnvironmentResolver(), transport);
            ASSERT_TRUE(eventually([&] { return clock.armed() == 1; }));
            EXPECT_EQ(server.requests().size(), 1U);
            EXPECT_EQ(analytics->queue().items.empty(), batch == Batch::gone);
            analytics.reset();
        }
    }
};

TEST_F(HostileReplyTest, OnlyTheStatusOfAWholeReplyCounts)
{
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    expectAll({
        { "invalid UTF-8", LoopbackServer::answer(200, "\xff\xfe\xed\xa0\x80"), Batch::gone },
        { "the wrong kind of JSON", LoopbackServer::answer(200, R"({"error":["a",{}]})"),
            Batch::gone },
        { "a million levels", LoopbackServer::answer(200, std::string(1'000'000, '[')),
            Batch::gone },
        { "no body", LoopbackServer::answer(204, ""), Batch::gone },
        { "more than was announced",
            { .bytes = ok + "Content-Length: 2\r\n\r\n{} and more", .then = Then::close },
            Batch::gone },
        { "cut within the body",
            { .bytes = ok + "Content-Length: 9\r\n\r\nbody", .then = Then::close }, Batch::kept },
        { "cut within the headers", { .bytes = ok + "Content-Le", .then = Then::close },
            Batch::kept },
        { "no reply at all", { .bytes = "", .then = Then::close }, Batch::kept },
        { "a reset", { .bytes = ok, .then = Then::reset }, Batch::kept },
        { "no HTTP", { .bytes = "SSH-2.0-OpenSSH_9.2\r\n", .then = Then::close }, Batch::kept },
        { "a length that is no number",
            { .bytes = ok + "Content-Length: many\r\n\r\n{}", .then = Then::close }, Batch::kept },
        { "a refusal whose body breaks off",
            { .bytes = "HTTP/1.1 400 No\r\nContent-Length: 9\r\n\r\n{", .then = Then::close },
            Batch::kept },
    });
}

TEST_F(HostileReplyTest, AnEndlessReplyIsCutOff)
{
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    expectAll({
        { "a gigabyte that was announced",
            { .bytes = ok + "Content-Length: 1073741824\r\n\r\n",
                .repeated = std::string(65536, 'x') },
            Batch::kept },
        { "a body without end", { .bytes = ok + "\r\n", .repeated = std::string(65536, 'x') },
            Batch::kept },
        { "headers without end", { .bytes = ok, .repeated = "X-Filler: y\r\n" }, Batch::kept },
    });
}

TEST_F(HostileReplyTest, AReplyByteByByteEndsWithTheExchangesTime)
{
    expectAll(
        { { "a byte each 20 ms",
            { .bytes = "HTTP/1.1 200 OK\r\n\r\n", .pause = 20ms, .repeated = "x" }, Batch::kept } },
        hurriedTransport(0.5));
}

TEST_F(HostileReplyTest, AServerThatCannotProveWhoItIsGetsNothing)
{
    using Proof = UnprovenServer::Proof;
    setenv("no_proxy", "127.0.0.1,localhost", 1);
    for (const Proof proof : { Proof::selfSigned, Proof::selfSignedForAnother, Proof::none }) {
        UnprovenServer server(proof);
        bundle.baseURL = server.url();
        analytics = std::make_unique<Analytics>(settings, clock, bundle);
        ASSERT_TRUE(eventually([&] { return clock.armed() == 1; }));
        EXPECT_TRUE(server.wasConnected());
        EXPECT_EQ(server.bytesRead(), 0);
        EXPECT_EQ(analytics->queue().items.size(), 1U);
        analytics.reset();
    }
}

} // namespace

} // namespace vesko
