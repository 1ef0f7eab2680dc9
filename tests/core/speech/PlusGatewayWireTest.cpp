// The gateway's client with the transport of its own, against a real server: what goes over the
// wire, and whatever may come back.

#include "tests/core/speech/Exchanges.h"
#include "tests/core/speech/PlusCalls.h"
#include "tests/fakes/HurriedTransport.h"
#include "tests/fakes/UnprovenServer.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vesko {
namespace {

using Reply = LoopbackServer::Reply;
using Then = LoopbackServer::Then;
using namespace std::chrono_literals;

constexpr const char* plusAnswer = R"({"text":"hello","state":"done"})";

PlusGateway gatewayOf(const LoopbackServer& server)
{
    return PlusGateway(server.url());
}

// The failure of a speech call, in words; the text it gave if there was none.
std::string outcome(const PlusGateway& gateway)
{
    try {
        return PlusSpeechCall().on(gateway).text;
    } catch (const PlusFailure& failure) {
        return "plus " + std::to_string(failure.kind());
    } catch (const URLError& error) {
        return "network " + std::to_string(error.kind());
    }
}

std::string plusFailed(PlusFailure::Kind kind)
{
    return "plus " + std::to_string(kind);
}

std::string networkFailure(URLError::Kind kind)
{
    return "network " + std::to_string(kind);
}

TEST(PlusGatewayOnTheWire, ASpeechCallFromBothSides)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, plusAnswer, { { "X-Generation-Id", "gen-7" } }));
    const TranscriptResult result = PlusSpeechCall().on(gatewayOf(server));
    EXPECT_EQ(result.requestID, "req-1") << "no header of the answer counts";
    const std::string body = R"({"audio":"dm9pY2U=","format":"m4a","model":"vendor\/speech",)"
                             R"("requestId":"req-1","seconds":4})";
    EXPECT_EQ(server.onlyRequest().bytes,
        "POST /v1/plus/transcribe HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port())
            + "\r\nAccept: */*\r\nContent-Type: application/json\r\n"
              "Authorization: Bearer test-token\r\nContent-Length: "
            + std::to_string(body.size()) + "\r\n\r\n" + body);
}

TEST(PlusGatewayOnTheWire, AnAllowanceIsAskedForWithoutABody)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(401, R"({"error":"unauthorized"})"));
    EXPECT_EQ(plusFailure([&] { gatewayOf(server).allowance("test-token", {}); }),
        PlusFailure::signInRequired);
    EXPECT_EQ(server.onlyRequest().bytes,
        "GET /v1/plus/allowance HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port())
            + "\r\nAccept: */*\r\nAuthorization: Bearer test-token\r\n\r\n");
}

TEST(PlusGatewayOnTheWire, ARedirectIsAFailureAndTheTokenGoesNowhereElse)
{
    for (const int status : { 301, 302, 303, 307, 308 }) {
        LoopbackServer elsewhere;
        LoopbackServer server;
        server.reply(
            LoopbackServer::answer(status, plusAnswer, { { "Location", elsewhere.url() + "/" } }));
        EXPECT_EQ(outcome(gatewayOf(server)), plusFailed(PlusFailure::invalidResponse)) << status;
        EXPECT_EQ(server.requests().size(), 1U);
        EXPECT_EQ(elsewhere.connections(), 0U);
    }
}

TEST(PlusGatewayOnTheWire, ATokenWithALineEndIsNotSent)
{
    LoopbackServer server;
    for (const char* token : { "token\r\nX-Smuggled: yes", "token\n", "to\rken" }) {
        try {
            PlusSpeechCall{ .token = token }.on(gatewayOf(server));
            ADD_FAILURE() << "sent";
        } catch (const URLError& error) {
            EXPECT_EQ(error.kind(), URLError::other);
        }
    }
    EXPECT_EQ(server.connections(), 0U);
}

TEST(PlusGatewayOnTheWire, EveryHostileAnswerEndsInItsFailureAndIsAskedForOnce)
{
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    const struct {
        const char* what;
        Reply reply;
        std::string outcome;
    } rows[] = {
        { "no answer", { .bytes = "", .then = Then::close },
            networkFailure(URLError::networkConnectionLost) },
        { "a reset", { .bytes = ok, .then = Then::reset },
            networkFailure(URLError::networkConnectionLost) },
        { "cut within the headers", { .bytes = ok + "Content-Le", .then = Then::close },
            networkFailure(URLError::networkConnectionLost) },
        { "shorter than its length",
            { .bytes = ok + "Content-Length: 900\r\n\r\n" + plusAnswer, .then = Then::close },
            networkFailure(URLError::networkConnectionLost) },
        { "longer than its length",
            { .bytes = ok + "Content-Length: 31\r\n\r\n" + plusAnswer + " and more",
                .then = Then::close },
            "hello" },
        { "a length that is no number",
            { .bytes = ok + "Content-Length: many\r\n\r\n" + plusAnswer, .then = Then::close },
            plusFailed(PlusFailure::invalidResponse) },
        { "no HTTP", { .bytes = "SSH-2.0-OpenSSH_9.2\r\n", .then = Then::close },
            plusFailed(PlusFailure::invalidResponse) },
        { "a gigabyte that was announced",
            { .bytes = ok + "Content-Length: 1073741824\r\n\r\n",
                .repeated = std::string(65536, 'x') },
            networkFailure(URLError::other) },
        { "an endless body", { .bytes = ok + "\r\n", .repeated = std::string(65536, 'x') },
            networkFailure(URLError::other) },
        { "endless headers", { .bytes = ok, .repeated = "X-Filler: y\r\n" },
            networkFailure(URLError::other) },
        { "the wrong types", LoopbackServer::answer(200, R"({"text":1,"state":[]})"),
            plusFailed(PlusFailure::invalidResponse) },
        { "deep nesting", LoopbackServer::answer(200, R"({"text":)" + std::string(1'000'000, '[')),
            plusFailed(PlusFailure::invalidResponse) },
        { "invalid UTF-8", LoopbackServer::answer(200, "{\"text\":\"\xff\",\"state\":\"s\"}"),
            plusFailed(PlusFailure::invalidResponse) },
        { "a failure of ten megabytes", LoopbackServer::answer(503, std::string(10'000'000, '{')),
            plusFailed(PlusFailure::serviceBusy) },
        { "a failure that is cut",
            { .bytes = "HTTP/1.1 402 No\r\nContent-Length: 90\r\n\r\n{\"error\":",
                .then = Then::close },
            networkFailure(URLError::networkConnectionLost) },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        server.reply(row.reply);
        server.reply(LoopbackServer::answer(200, plusAnswer));
        EXPECT_EQ(outcome(gatewayOf(server)), row.outcome) << row.what;
        EXPECT_EQ(server.requests().size(), 1U) << row.what;
    }
}

TEST(PlusGatewayOnTheWire, AnAnswerByteByByteEndsWithTheExchangesTime)
{
    LoopbackServer server;
    server.reply({ .bytes = "HTTP/1.1 200 OK\r\n\r\n", .pause = 20ms, .repeated = " " });
    EXPECT_EQ(outcome(PlusGateway(server.url(), hurriedTransport(0.5))),
        networkFailure(URLError::timedOut));
}

TEST(PlusGatewayOnTheWire, AStopEndsACallUnderWay)
{
    LoopbackServer server;
    server.reply({ .bytes = "", .then = Then::stayOpen });
    std::stop_source source;
    const std::jthread user([&] {
        EXPECT_TRUE(server.waitForReplies(1));
        source.request_stop();
    });
    try {
        PlusSpeechCall().on(gatewayOf(server), source.get_token());
        ADD_FAILURE() << "no error";
    } catch (const URLError& error) {
        EXPECT_EQ(error.kind(), URLError::cancelled);
    }
}

TEST(PlusGatewayOnTheWire, AServerThatCannotProveWhoItIsGetsNothing)
{
    using Proof = UnprovenServer::Proof;
    setenv("no_proxy", "127.0.0.1,localhost", 1);
    for (const Proof proof : { Proof::selfSigned, Proof::selfSignedForAnother, Proof::none }) {
        UnprovenServer server(proof);
        EXPECT_EQ(outcome(PlusGateway(server.url())), networkFailure(URLError::other));
        EXPECT_TRUE(server.wasConnected());
        EXPECT_EQ(server.bytesRead(), 0);
    }
}

TEST(PlusGatewayOnTheWire, NoFailureSaysWhatTheServiceOrTheCallerSaid)
{
    const std::string secrets[] = { "test-token", "voice", "my brother", "vendor" };
    for (const int status : { 200, 400, 401, 500 }) {
        LoopbackServer server;
        server.reply(LoopbackServer::answer(
            status, R"({"error":"my brother says test-token","text":"my brother"})"));
        try {
            PlusSpeechCall().on(gatewayOf(server));
            ADD_FAILURE() << "no error";
        } catch (const PlusFailure& failure) {
            for (const auto& secret : secrets)
                EXPECT_EQ(std::string(failure.what()).find(secret), std::string::npos) << status;
        }
    }
}

} // namespace
} // namespace vesko
