#include "tests/core/speech/Exchanges.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <filesystem>
#include <netinet/in.h>
#include <set>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace vesko {
namespace {

using Reply = LoopbackServer::Reply;
using Then = LoopbackServer::Then;

TEST(CurlTransport, SendsAGetWithItsHeadersAndNoMoreThanHttpNeeds)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, "answer"));
    HttpRequest request = get(server, "/api/v1/models?a=b&c=%20d");
    request.headers = { { "X-Title", "Vesko" }, { "Content-Type", "application/json" } };

    const HTTPResult result = exchange(request);

    EXPECT_EQ(result.data, "answer");
    EXPECT_EQ(result.status, 200);
    EXPECT_EQ(server.onlyRequest().bytes,
        "GET /api/v1/models?a=b&c=%20d HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port())
            + "\r\nAccept: */*\r\nX-Title: Vesko\r\nContent-Type: application/json\r\n\r\n");
}

TEST(CurlTransport, SendsAPostWithItsBodyByteForByte)
{
    std::string body = "\xff\xfe\r\n\r\n";
    body += '\0';
    body += "end";
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, ""));

    exchange(post(server, body));

    const auto request = server.onlyRequest();
    EXPECT_EQ(request.startLine, "POST /thing HTTP/1.1");
    EXPECT_EQ(request.body, body);
    EXPECT_EQ(request.header("Content-Length"), "10");
    EXPECT_EQ(request.header("Content-Type"), "application/json");
    EXPECT_EQ(request.header("Authorization"), "Bearer secret");
}

TEST(CurlTransport, APostWithoutABodyIsAPostOfNoBytes)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, ""));
    server.reply(LoopbackServer::answer(200, ""));
    HttpRequest request = post(server, "");
    exchange(request);
    request.body.reset();
    exchange(request);

    ASSERT_EQ(server.requests().size(), 2U);
    for (const auto& sent : server.requests()) {
        EXPECT_EQ(sent.startLine, "POST /thing HTTP/1.1");
        EXPECT_EQ(sent.header("Content-Length"), "0");
    }
}

TEST(CurlTransport, SendsADelete)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(204, ""));
    HttpRequest request = get(server);
    request.method = "DELETE";

    EXPECT_EQ(exchange(request).status, 204);
    EXPECT_EQ(server.onlyRequest().startLine, "DELETE /thing HTTP/1.1");
}

// libcurl asks for leave before a body of more than a megabyte, and waits a second for it.
TEST(CurlTransport, SaysNothingOfTheKindOfABodyThatIsNotThere)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, ""));
    HttpRequest request = post(server, "");
    request.body.reset();
    request.headers.clear();
    exchange(request);
    EXPECT_EQ(server.onlyRequest().header("Content-Type"), std::nullopt);
}

TEST(CurlTransport, SendsALargeBodyWithoutAskingForLeave)
{
    const std::string body = megabytes(35);
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, "got it"));

    EXPECT_EQ(exchange(post(server, body)).data, "got it");
    EXPECT_EQ(server.onlyRequest().header("Expect"), std::nullopt);
    EXPECT_TRUE(server.onlyRequest().body == body);
}

TEST(CurlTransport, EveryFinalStatusIsAResultWithItsBody)
{
    for (const int status :
        { 200, 201, 299, 300, 304, 400, 401, 402, 403, 404, 407, 417, 429, 500, 503, 599 }) {
        LoopbackServer server;
        const std::string body = status == 304 ? "" : "body";
        server.reply(
            LoopbackServer::answer(status, body, { { "WWW-Authenticate", "Basic realm=a" } }));
        const HTTPResult result = exchange(post(server));
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.data, body) << status;
        EXPECT_EQ(server.requests().size(), 1U) << status;
    }
}

TEST(CurlTransport, ReadsEveryFormOfABody)
{
    const struct {
        const char* what;
        std::string bytes;
        std::string body;
    } rows[] = {
        { "with a length", "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody", "body" },
        { "empty", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n", "" },
        { "in chunks",
            "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nbo\r\n2\r\ndy\r\n0\r\n\r\n",
            "body" },
        { "until the end of the connection", "HTTP/1.1 200 OK\r\n\r\nbody", "body" },
        { "of HTTP/1.0", "HTTP/1.0 200 OK\r\n\r\nbody", "body" },
        { "after a status of no meaning yet",
            "HTTP/1.1 199 Wait\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody", "body" },
        { "longer than its length", "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody and more",
            "body" },
        { "that is no UTF-8", "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n\xff\xfe", "\xff\xfe" },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        server.reply({ .bytes = row.bytes, .then = Then::close });
        EXPECT_EQ(exchange(get(server)).data, row.body) << row.what;
    }
}

TEST(CurlTransport, ReadsTheGenerationIdWhateverTheCaseOfItsName)
{
    using Headers = LoopbackServer::Headers;
    const struct {
        const char* what;
        Headers headers;
        std::optional<std::string> id;
    } rows[] = {
        { "as documented", { { "X-Generation-Id", "gen-1" } }, "gen-1" },
        { "in lower case", { { "x-generation-id", "gen-1" } }, "gen-1" },
        { "in upper case", { { "X-GENERATION-ID", "gen-1" } }, "gen-1" },
        { "absent", { { "X-Other", "gen-1" } }, std::nullopt },
        { "only the beginning of the name", { { "X-Generation", "gen-1" } }, std::nullopt },
        { "in UTF-8", { { "X-Generation-Id", "gen-\u00e9" } }, "gen-\u00e9" },
        { "in Latin-1", { { "X-Generation-Id", "gen-\xe9" } }, "gen-\u00e9" },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        server.reply(LoopbackServer::answer(200, "", row.headers));
        EXPECT_EQ(exchange(get(server)).requestID, row.id) << row.what;
    }
}

TEST(CurlTransport, KeepsNeitherCookiesNorAnswers)
{
    LoopbackServer server;
    const LoopbackServer::Headers headers = { { "Set-Cookie", "a=b; Path=/" },
        { "Cache-Control", "max-age=3600" }, { "ETag", "\"1\"" } };
    server.reply(LoopbackServer::answer(200, "first", headers));
    server.reply(LoopbackServer::answer(200, "second", headers));
    const HttpTransport transport = curlTransport();

    EXPECT_EQ(transport(get(server), {}).data, "first");
    EXPECT_EQ(transport(get(server), {}).data, "second");

    ASSERT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(server.requests()[1].bytes, server.requests()[0].bytes);
}

TEST(CurlTransport, NoRedirectIsFollowedSoTheKeyStaysWhereItWasSent)
{
    for (const int status : { 301, 302, 303, 307, 308 }) {
        LoopbackServer elsewhere;
        LoopbackServer server;
        server.reply(
            LoopbackServer::answer(status, "", { { "Location", elsewhere.url() + "/steal" } }));
        EXPECT_EQ(exchange(post(server)).status, status);
        EXPECT_EQ(server.requests().size(), 1U) << status;
        EXPECT_EQ(elsewhere.connections(), 0U) << status;
    }
}

// A provider charges for what it was sent. Whatever becomes of the answer, the server must have
// seen the request once.
TEST(CurlTransport, AFailedExchangeIsNeverSentAgain)
{
    const struct {
        const char* what;
        Reply reply;
        URLError::Kind kind;
    } rows[] = {
        { "closed without an answer", { .bytes = "", .then = Then::close },
            URLError::networkConnectionLost },
        { "reset without an answer", { .bytes = "", .then = Then::reset },
            URLError::networkConnectionLost },
        { "closed within the status line", { .bytes = "HTTP/1.1 2", .then = Then::close },
            URLError::networkConnectionLost },
        { "closed within the headers",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Le", .then = Then::close },
            URLError::networkConnectionLost },
        { "closed between two headers",
            { .bytes = "HTTP/1.1 200 OK\r\nX-Title: a\r\n", .then = Then::close },
            URLError::networkConnectionLost },
        { "closed after a preliminary answer",
            { .bytes = "HTTP/1.1 100 Continue\r\n\r\n", .then = Then::close },
            URLError::networkConnectionLost },
        { "closed within the headers after a preliminary answer",
            { .bytes = "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n", .then = Then::close },
            URLError::networkConnectionLost },
        { "closed before the last chunk",
            { .bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n",
                .then = Then::close },
            URLError::networkConnectionLost },
        { "closed within the body",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nbody", .then = Then::close },
            URLError::networkConnectionLost },
        { "reset within the body",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nbody", .then = Then::reset },
            URLError::networkConnectionLost },
        { "closed within a chunk",
            { .bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\nbody",
                .then = Then::close },
            URLError::networkConnectionLost },
        { "a damaged chunk",
            { .bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nbody",
                .then = Then::close },
            URLError::networkConnectionLost },
    };
    for (const auto& row : rows) {
        LoopbackServer server;
        server.reply(row.reply);
        server.reply(LoopbackServer::answer(200, "charged twice"));
        EXPECT_EQ(failure(post(server)), row.kind) << row.what;
        EXPECT_EQ(server.requests().size(), 1U) << row.what;
        EXPECT_EQ(server.connections(), 1U) << row.what;
    }
}

// A client that keeps its connections sends the second request down the first one's, finds it dead
// and sends the request again on a new one.
TEST(CurlTransport, ADeadConnectionOfAnEarlierExchangeSendsNothingTwice)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, "first", { { "Connection", "keep-alive" } }));
    server.reply({ .bytes = "", .then = Then::close });
    server.reply(LoopbackServer::answer(200, "charged twice"));
    const HttpTransport transport = curlTransport();

    EXPECT_EQ(transport(post(server), {}).data, "first");
    EXPECT_EQ(failure(post(server), transport), URLError::networkConnectionLost);

    EXPECT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(server.connections(), 2U);
}

TEST(CurlTransport, AnAnswerThatIsNotHttpIsAnInvalidResponse)
{
    const std::string answers[] = {
        "SSH-2.0-OpenSSH_9.2\r\n",
        "{\"text\":\"no head\"}",
        std::string("\x15\x03\x01\0\x02\x02\x46", 7),
        "HTTP/9.9 200 OK\r\n\r\nbody",
        "HTTP/1.1 abc\r\n\r\nbody",
        "HTTP/1.1 200 OK\r\nContent-Length: many\r\n\r\nbody",
        "HTTP/1.1 200 OK\r\nContent-Length: -4\r\n\r\nbody",
    };
    for (const std::string& answer : answers) {
        LoopbackServer server;
        server.reply({ .bytes = answer, .then = Then::close });
        try {
            exchange(post(server));
            ADD_FAILURE() << "taken for an answer: " << answer;
        } catch (const VeskoError& error) {
            EXPECT_EQ(error.kind(), VeskoError::invalidResponse) << answer;
        } catch (const URLError& error) {
            ADD_FAILURE() << answer << " was kind " << error.kind();
        }
        EXPECT_EQ(server.requests().size(), 1U) << answer;
    }
}

TEST(CurlTransport, AHostWithoutAnAddressIsNotFound)
{
    // No name server knows a label of more than 63 characters.
    const std::string host = std::string(64, 'a') + ".invalid";
    EXPECT_EQ(
        failure({ .url = "http://" + host + "/", .method = "GET", .headers = {}, .body = {} }),
        URLError::cannotFindHost);
}

TEST(CurlTransport, APortWhereNobodyListensCannotBeConnected)
{
    const int held = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_GE(held, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    ASSERT_EQ(bind(held, generic, size), 0);
    ASSERT_EQ(getsockname(held, generic, &size), 0);
    const std::string url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/";

    EXPECT_EQ(failure({ .url = url, .method = "GET", .headers = {}, .body = {} }),
        URLError::cannotConnectToHost);
    close(held);
}

TEST(CurlTransport, OnlyHttpIsSpoken)
{
    for (const char* url : { "file:///etc/hostname", "ftp://127.0.0.1/", "gopher://127.0.0.1/",
             "dict://127.0.0.1/", "", "http://", "no address" }) {
        EXPECT_EQ(
            failure({ .url = url, .method = "GET", .headers = {}, .body = {} }), URLError::other)
            << url;
    }
}

TEST(CurlTransport, ALineEndInAHeaderIsRefusedBeforeAnythingIsSent)
{
    const std::string smuggled = "value\r\nX-Smuggled: yes";
    const std::vector<std::pair<std::string, std::string>> headers[] = {
        { { "X-Title", smuggled } },
        { { "X-Title", "value\nX-Smuggled: yes" } },
        { { "X-Title", "value\r" } },
        { { "X-Title", std::string("value\0more", 10) } },
        { { "X-Title: a\r\nX-Smuggled", "yes" } },
    };
    for (const auto& header : headers) {
        LoopbackServer server;
        HttpRequest request = post(server);
        request.headers = header;
        EXPECT_EQ(failure(request), URLError::other);
        EXPECT_EQ(server.connections(), 0U);
    }
    LoopbackServer server;
    HttpRequest request = post(server);
    request.method = "POST /other HTTP/1.1\r\nX-Smuggled: yes\r\n\r\nGET";
    EXPECT_EQ(failure(request), URLError::other);
    request = post(server);
    request.url += std::string("\0/more", 6);
    EXPECT_EQ(failure(request), URLError::other);
    EXPECT_EQ(server.connections(), 0U);
}

TEST(CurlTransport, ExchangesOfManyThreadsDoNotMix)
{
    constexpr int count = 16;
    LoopbackServer server;
    std::set<std::string> expected;
    for (int index = 0; index < count; ++index) {
        const std::string id = std::to_string(index);
        server.reply(
            LoopbackServer::answer(200, "body " + id, { { "X-Generation-Id", "id " + id } }));
        expected.insert("body " + id);
    }
    const HttpTransport transport = curlTransport();
    std::vector<HTTPResult> results(count);
    {
        std::vector<std::jthread> threads;
        threads.reserve(count);
        for (HTTPResult& result : results)
            threads.emplace_back([&] { result = transport(post(server), {}); });
    }
    std::set<std::string> received;
    for (const HTTPResult& result : results) {
        received.insert(result.data);
        EXPECT_EQ(result.requestID.value_or(""), "id " + result.data.substr(5));
    }
    EXPECT_EQ(received, expected);
}

TEST(CurlTransport, NeitherAnAnswerNorAFailureLeavesAnOpenDescriptor)
{
    const HttpTransport transport = curlTransport();
    const auto exchangeTenTimes = [&transport] {
        LoopbackServer server;
        for (int round = 0; round < 10; ++round) {
            server.reply(LoopbackServer::answer(200, "whole"));
            transport(get(server), {});
            server.reply({ .bytes = "HTTP/1.1 200 OK\r\n", .then = Then::close });
            failure(get(server), transport);
        }
    };
    const auto openDescriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
            std::filesystem::directory_iterator());
    };
    exchangeTenTimes(); // what libcurl opens once and keeps
    const auto before = openDescriptors();
    exchangeTenTimes();
    EXPECT_EQ(openDescriptors(), before);
}

} // namespace
} // namespace vesko
