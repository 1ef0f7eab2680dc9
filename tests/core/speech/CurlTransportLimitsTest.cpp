#include "tests/core/speech/Exchanges.h"
#include "tests/fakes/HurriedTransport.h"

#include <chrono>
#include <thread>

namespace vesko {
namespace {

using namespace std::chrono_literals;
using Reply = LoopbackServer::Reply;
using Then = LoopbackServer::Then;

TEST(CurlTransportLimits, AnAnswerMayFillTheLimitAndNotOneByteMore)
{
    const HttpTransport transport = curlTransport(1000);
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, std::string(1000, 'x')));
    server.reply(LoopbackServer::answer(200, std::string(1001, 'x')));

    EXPECT_EQ(transport(get(server), {}).data.size(), 1000U);
    EXPECT_EQ(failure(get(server), transport), URLError::other);
}

TEST(CurlTransportLimits, AnEndlessAnswerIsCutOff)
{
    const struct {
        const char* what;
        Reply reply;
    } rows[] = {
        { "endless body",
            { .bytes = "HTTP/1.1 200 OK\r\n\r\n", .repeated = std::string(65536, 'x') } },
        { "endless chunks",
            { .bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n",
                .repeated = "3e8\r\n" + std::string(1000, 'x') + "\r\n" } },
        { "endless headers",
            { .bytes = "HTTP/1.1 200 OK\r\n",
                .repeated = "X-Filler: " + std::string(1000, 'x') + "\r\n" } },
        { "endless header line",
            { .bytes = "HTTP/1.1 200 OK\r\nX-Filler: ", .repeated = std::string(65536, 'x') } },
        { "endless preliminary answers",
            { .bytes = "", .repeated = "HTTP/1.1 100 Continue\r\nX-Filler: y\r\n\r\n" } },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        server.reply(row.reply);
        EXPECT_EQ(failure(post(server)), URLError::other) << row.what;
        EXPECT_EQ(server.requests().size(), 1U) << row.what;
    }
}

TEST(CurlTransportLimits, AServerThatFallsSilentIsGivenUp)
{
    const struct {
        const char* what;
        std::string bytes;
    } rows[] = {
        { "before the answer", "" },
        { "within the headers", "HTTP/1.1 200 OK\r\nContent-" },
        { "within the body", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nbody" },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        server.reply({ .bytes = row.bytes, .then = Then::stayOpen });
        HttpRequest request = post(server);
        request.timeout = 0.3;
        EXPECT_EQ(failure(request), URLError::timedOut) << row.what;
        EXPECT_EQ(server.requests().size(), 1U) << row.what;
    }
}

TEST(CurlTransportLimits, AServerThatStopsReadingIsGivenUp)
{
    LoopbackServer server;
    server.stopReading();
    HttpRequest request = post(server, megabytes(30));
    request.timeout = 0.3;
    EXPECT_EQ(failure(request), URLError::timedOut);
}

TEST(CurlTransportLimits, AnAnswerMayTakeLongerThanTheIdleTimeAsLongAsItMoves)
{
    // One byte each 30 ms: the body alone takes longer than the idle time.
    const std::string body(90, 'x');
    LoopbackServer server;
    Reply slow = LoopbackServer::answer(200, body);
    slow.pause = 30ms;
    server.reply(slow);
    HttpRequest request = post(server);
    request.timeout = 2;
    EXPECT_EQ(exchange(request).data, body);
}

TEST(CurlTransportLimits, SendingMayTakeLongerThanTheIdleTimeAsLongAsItMoves)
{
    // More than the sockets between hold, and than is sipped in that time.
    const std::string body = megabytes(30);
    LoopbackServer server;
    server.readSlowlyFor(3s);
    server.reply(LoopbackServer::answer(200, "got it"));
    HttpRequest request = post(server, body);
    request.timeout = 2;
    EXPECT_EQ(exchange(request).data, "got it");
    EXPECT_EQ(server.onlyRequest().body.size(), body.size());
}

TEST(CurlTransportLimits, AnExchangeThatMovesForeverEndsWithItsWholeTime)
{
    LoopbackServer server;
    server.reply({ .bytes = "HTTP/1.1 200 OK\r\n\r\n", .pause = 20ms, .repeated = "x" });
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(failure(post(server), hurriedTransport(0.5)), URLError::timedOut);
    EXPECT_LT(std::chrono::steady_clock::now() - started, 30s);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(CurlTransportLimits, AStopBeforeTheExchangeSendsNothing)
{
    LoopbackServer server;
    std::stop_source source;
    source.request_stop();
    EXPECT_EQ(failure(post(server), curlTransport(), source.get_token()), URLError::cancelled);
    EXPECT_EQ(server.connections(), 0U);
}

TEST(CurlTransportLimits, AStopEndsTheExchangeWithinMoments)
{
    const struct {
        const char* what;
        std::string sent;
        bool reading;
        std::string answered;
    } rows[] = {
        { "waiting for the answer", "x", true, "" },
        { "long asleep within the body", "x", true,
            "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nbody" },
        { "while the server does not read", megabytes(30), false, "" },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        if (!row.reading)
            server.stopReading();
        // Slow, since libcurl wakes up by itself in its first 200 milliseconds.
        server.reply({ .bytes = row.answered, .then = Then::stayOpen, .pause = 10ms });
        std::stop_source source;
        const std::jthread user([&] {
            EXPECT_TRUE(row.reading ? server.waitForReplies(1) : server.waitForConnections(1));
            source.request_stop();
        });
        const HttpRequest request = post(server, row.sent);
        const auto started = std::chrono::steady_clock::now();
        EXPECT_EQ(failure(request, curlTransport(), source.get_token()), URLError::cancelled)
            << row.what;
        // Far below both time-outs, and far above what a busy machine needs.
        EXPECT_LT(std::chrono::steady_clock::now() - started, 30s) << row.what;
    }
}

} // namespace
} // namespace vesko
