// A service, or somebody in its place, that means no good: every call ends, in bounded time and
// memory, and none ends as a success.

#include "tests/core/account/AccountCalls.h"
#include "tests/fakes/HurriedTransport.h"
#include "tests/fakes/UnprovenServer.h"

#include <chrono>

namespace vesko {
namespace {

using namespace std::chrono_literals;
using Reply = LoopbackServer::Reply;
using Then = LoopbackServer::Then;

std::string signInOutcome(const AccountClient& client)
{
    return outcome([&] { client.verifyEmail("a@b.c", "012345", {}); });
}

TEST(AccountClientHostile, AnAnswerThatIsNotASignInIsNone)
{
    std::string deep = R"({"session":)";
    for (int level = 0; level < 100'000; ++level)
        deep += R"({"a":)";
    const struct {
        const char* what;
        Reply reply;
        const char* outcome;
    } rows[] = {
        { "not HTTP", { .bytes = "SSH-2.0-OpenSSH_9.2\r\n\r\n", .then = Then::close },
            "unavailable" },
        { "HTTP/0.9", { .bytes = "<html>welcome</html>", .then = Then::close }, "unavailable" },
        { "no bytes at all", { .bytes = "", .then = Then::close }, "URLError" },
        { "a reset", { .bytes = "HTTP/1.1 200 OK\r\n", .then = Then::reset }, "URLError" },
        { "headers that break off",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n", .then = Then::close },
            "URLError" },
        { "a body that breaks off",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n" + signInJson,
                .then = Then::close },
            "URLError" },
        { "a length that is too short",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n" + signInJson,
                .then = Then::close },
            "JsonError" },
        { "a length that is no number",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\n" + signInJson,
                .then = Then::close },
            "unavailable" },
        { "a chunk that breaks off",
            { .bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nFFF\r\n" + signInJson,
                .then = Then::close },
            "URLError" },
        { "nothing in it", LoopbackServer::answer(200, ""), "JsonError" },
        { "another type", LoopbackServer::answer(200, "[]"), "JsonError" },
        { "a hundred thousand levels", LoopbackServer::answer(200, deep), "JsonError" },
        { "a refusal of a hundred thousand levels", LoopbackServer::answer(429, deep),
            "rateLimited" },
        { "UTF-8 that is none", LoopbackServer::answer(200, signInJson + "\xFF"), "JsonError" },
        { "a code in UTF-8 that is none",
            LoopbackServer::answer(401, "{\"error\":\"code_expired\xC3\"}"), "unauthorized" },
        { "a code with a zero byte",
            LoopbackServer::answer(400, R"({"error":"code_expired\u0000"})"), "unavailable" },
        { "a cookie and a page", LoopbackServer::answer(200, "<html>", { { "Set-Cookie", "a=b" } }),
            "JsonError" },
    };
    for (const auto& [what, reply, expected] : rows) {
        LoopbackServer server;
        server.reply(reply);
        EXPECT_EQ(signInOutcome(clientOf(server)), expected) << what;
        EXPECT_EQ(server.requests().size(), 1U) << what; // never sent again
    }
}

TEST(AccountClientHostile, AnAnswerWithoutEndIsCutOff)
{
    const struct {
        const char* what;
        Reply reply;
    } rows[] = {
        { "a gigabyte announced",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 1073741824\r\n\r\n",
                .repeated = std::string(65536, ' ') } },
        { "a gigabyte unannounced",
            { .bytes = "HTTP/1.1 200 OK\r\n\r\n{\"session\":\"",
                .repeated = std::string(65536, 'x') } },
        { "a refusal without end",
            { .bytes = "HTTP/1.1 401 Unauthorized\r\n\r\n", .repeated = std::string(65536, ' ') } },
        { "headers without end",
            { .bytes = "HTTP/1.1 200 OK\r\n",
                .repeated = "X-Filler: " + std::string(1000, 'x') + "\r\n" } },
    };
    for (const auto& [what, reply] : rows) {
        LoopbackServer server;
        server.reply(reply);
        EXPECT_EQ(signInOutcome(clientOf(server)), "URLError") << what;
    }
}

TEST(AccountClientHostile, AnAnswerMayBeAMebibyteAndNotOneByteMore)
{
    constexpr std::size_t limit = 1 << 20;
    LoopbackServer server;
    server.reply(
        LoopbackServer::answer(200, signInJson + std::string(limit - signInJson.size(), ' ')));
    server.reply(
        LoopbackServer::answer(200, signInJson + std::string(limit + 1 - signInJson.size(), ' ')));
    EXPECT_EQ(signInOutcome(clientOf(server)), "ok");
    EXPECT_EQ(signInOutcome(clientOf(server)), "URLError");
}

TEST(AccountClientHostile, AnAnswerThatComesByteByByteEndsWithTheWholeTime)
{
    LoopbackServer server;
    server.reply({ .bytes = "HTTP/1.1 200 OK\r\n\r\n", .pause = 20ms, .repeated = " " });
    EXPECT_EQ(signInOutcome(clientOf(server, hurriedTransport(0.5))), "URLError");
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(AccountClientHostile, AServerThatCannotProveWhoItIsGetsNoCode)
{
    setenv("no_proxy", "127.0.0.1,localhost", 1);
    using Proof = UnprovenServer::Proof;
    for (const auto proof : { Proof::selfSigned, Proof::selfSignedForAnother, Proof::none }) {
        UnprovenServer server(proof);
        EXPECT_EQ(signInOutcome(AccountClient(server.url())), "URLError");
        EXPECT_TRUE(server.wasConnected());
        EXPECT_EQ(server.bytesRead(), 0);
    }
    UnprovenServer google(Proof::selfSigned);
    const AccountClient client(std::nullopt, { .token = google.url() });
    EXPECT_EQ(outcome([&] { client.exchangeGoogle("c", "r", "i", "v", {}); }), "URLError");
    EXPECT_EQ(google.bytesRead(), 0);
}

TEST(AccountClientHostile, ATokenWithALineEndIsNotSent)
{
    LoopbackServer server;
    EXPECT_EQ(outcome([&] { clientOf(server).account("secret\r\nX-Other: 1", {}); }), "URLError");
    EXPECT_EQ(server.connections(), 0U);
}

} // namespace
} // namespace vesko
