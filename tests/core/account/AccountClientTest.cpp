#include "tests/core/account/AccountCalls.h"

#include "VeskoCore/account/QueryItems.h"

#include <gmock/gmock.h>

#include <functional>

namespace vesko {
namespace {

using Call = std::function<void(const AccountClient&)>;

const struct {
    const char* what;
    Call call;
    const char* startLine;
    std::optional<std::string> token;
    const char* body;
    std::string answer;
} calls[] = {
    { "asking for a code", [](const auto& client) { client.startEmail("a@b.c", {}); },
        "POST /base/v1/auth/email/start HTTP/1.1", std::nullopt, R"({"email":"a@b.c"})",
        "ignored" },
    { "signing in with a code",
        [](const auto& client) { client.verifyEmail("a@b.c", "012345", {}); },
        "POST /base/v1/auth/email/verify HTTP/1.1", std::nullopt,
        R"({"code":"012345","email":"a@b.c"})", signInJson },
    { "signing in with Google",
        [](const auto& client) { client.signInWithGoogle("a token", "raw", {}); },
        "POST /base/v1/auth/google HTTP/1.1", std::nullopt,
        R"({"idToken":"a token","nonce":"raw"})", signInJson },
    { "asking whose session it is", [](const auto& client) { client.account("secret", {}); },
        "GET /base/v1/account HTTP/1.1", "Bearer secret", "",
        R"({"account":)" + accountJson + "}" },
    { "signing out", [](const auto& client) { client.signOut("secret", {}); },
        "POST /base/v1/auth/logout HTTP/1.1", "Bearer secret", "", "" },
    { "deleting the account", [](const auto& client) { client.deleteAccount("secret", {}); },
        "DELETE /base/v1/account HTTP/1.1", "Bearer secret", "", "{}" },
};

TEST(AccountClient, EachCallIsOneRequestOfThisForm)
{
    for (const auto& [what, call, startLine, token, body, answer] : calls) {
        SCOPED_TRACE(what);
        LoopbackServer server;
        server.reply(LoopbackServer::answer(200, answer));
        EXPECT_EQ(outcome([&] { call(clientOf(server)); }), "ok");
        const auto request = server.onlyRequest();
        EXPECT_EQ(request.startLine, startLine);
        EXPECT_EQ(request.body, body);
        EXPECT_EQ(request.header("Authorization"), token);
        EXPECT_EQ(request.header("Content-Type"),
            *body ? std::optional<std::string>("application/json") : std::nullopt);
        EXPECT_EQ(request.header("Cookie"), std::nullopt);
    }
}

TEST(AccountClient, AnyStatusOfTheTwoHundredsIsSuccess)
{
    for (const int status : { 200, 201, 202, 299 }) {
        LoopbackServer server;
        server.reply(LoopbackServer::answer(status, ""));
        EXPECT_EQ(outcome([&] { clientOf(server).startEmail("a@b.c", {}); }), "ok") << status;
    }
}

TEST(AccountClient, ARefusalIsWhatItsCodeElseItsStatusSays)
{
    const struct {
        const char* what;
        int status;
        const char* body;
        const char* failure;
    } rows[] = {
        { "a code", 400, R"({"error":"code_expired"})", "codeExpired" },
        { "a code that wins over the status", 401, R"({"error":"invalid_code"})", "invalidCode" },
        { "a code among other things", 400, R"({"x":[1],"error":"rate_limited"})", "rateLimited" },
        { "an unknown code", 429, R"({"error":"slow_down"})", "rateLimited" },
        { "no body", 500, "", "unavailable" },
        { "no body and 429", 429, "", "rateLimited" },
        { "no body and 401", 401, "", "unauthorized" },
        { "a page", 500, "<html>", "unavailable" },
        { "a code that is a number", 401, R"({"error":5})", "unauthorized" },
        { "a code that is null", 401, R"({"error":null})", "unauthorized" },
        { "an array", 401, R"([{"error":"invalid_code"}])", "unauthorized" },
        { "no such code", 404, "{}", "unavailable" },
    };
    for (const auto& [what, status, body, failure] : rows)
        for (const auto& call : calls) {
            LoopbackServer server;
            server.reply(LoopbackServer::answer(status, body));
            EXPECT_EQ(outcome([&] { call.call(clientOf(server)); }), failure)
                << what << ", " << call.what;
        }
}

TEST(AccountClient, ARedirectIsARefusalAndNobodyFollowsIt)
{
    for (const auto& call : calls) {
        LoopbackServer server, elsewhere;
        server.reply(LoopbackServer::answer(307, "", { { "Location", elsewhere.url() } }));
        EXPECT_EQ(outcome([&] { call.call(clientOf(server)); }), "unavailable") << call.what;
        EXPECT_EQ(elsewhere.connections(), 0U) << call.what;
    }
}

TEST(AccountClient, WithoutABaseURLNothingIsSent)
{
    int sent = 0;
    const AccountClient client(std::nullopt, {}, [&](const HttpRequest&, const std::stop_token&) {
        ++sent;
        return HTTPResult{};
    });
    EXPECT_FALSE(client.configured());
    for (const auto& call : calls)
        EXPECT_EQ(outcome([&] { call.call(client); }), "providerUnconfigured") << call.what;
    EXPECT_EQ(sent, 0);
}

TEST(AccountClient, ThePathFollowsTheBaseURLWithOneSlash)
{
    for (const std::string base : { "https://x.example", "https://x.example/" }) {
        std::string url;
        const AccountClient client(base, {}, [&](const HttpRequest& request, const auto&) {
            url = request.url;
            EXPECT_EQ(request.timeout, 20);
            EXPECT_EQ(request.resourceTimeout, 60);
            return HTTPResult{ .data = {}, .status = 200, .requestID = std::nullopt };
        });
        client.signOut("secret", {});
        EXPECT_EQ(url, "https://x.example/v1/auth/logout");
    }
}

TEST(AccountClient, ASignInGivesTheSessionAndTheAccount)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, signInJson));
    const auto reply = clientOf(server).verifyEmail("a@b.c", "012345", {});
    EXPECT_EQ(reply.session.token, "secret");
    EXPECT_EQ(reply.account.email, "user@example.com");
    EXPECT_EQ(reply.account.id.text(), "0123ABCD-4567-89EF-ABCD-EF0123456789");
}

TEST(AccountClient, GooglesCodeIsExchangedWithoutASecret)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, R"({"access_token":"x","id_token":"the id"})"));
    EXPECT_EQ(clientOf(server).exchangeGoogle("4/0+x", "s:/oauth2redirect", "id", "verifier", {}),
        "the id");
    const auto request = server.onlyRequest();
    EXPECT_EQ(request.startLine, "POST /token HTTP/1.1");
    EXPECT_EQ(request.header("Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(request.header("Authorization"), std::nullopt);
    EXPECT_EQ(request.body,
        "code=4%2F0%2Bx&client_id=id&code_verifier=verifier&redirect_uri=s%3A%2Foauth2redirect"
        "&grant_type=authorization_code");
}

TEST(AccountClient, GooglesRefusalsAreAllTheSame)
{
    const struct {
        const char* what;
        LoopbackServer::Reply reply;
    } rows[] = {
        { "created", LoopbackServer::answer(201, R"({"id_token":"x"})") },
        { "refused with words", LoopbackServer::answer(400, R"({"error":"invalid_grant"})") },
        { "refused with a code of the other service",
            LoopbackServer::answer(400, R"({"error":"invalid_code"})") },
        { "not allowed", LoopbackServer::answer(401, "") },
        { "busy", LoopbackServer::answer(429, "") },
        { "no token", LoopbackServer::answer(200, "{}") },
        { "a token that is null", LoopbackServer::answer(200, R"({"id_token":null})") },
        { "a token that is a number", LoopbackServer::answer(200, R"({"id_token":5})") },
        { "a page", LoopbackServer::answer(200, "<html>") },
        { "not HTTP",
            { .bytes = "SSH-2.0-OpenSSH_9.2\r\n\r\n", .then = LoopbackServer::Then::close } },
    };
    for (const auto& [what, reply] : rows) {
        LoopbackServer server;
        server.reply(reply);
        EXPECT_EQ(outcome([&] { clientOf(server).exchangeGoogle("c", "r", "i", "v", {}); }),
            "unavailable")
            << what;
    }
    LoopbackServer server;
    server.reply({ .bytes = "", .then = LoopbackServer::Then::reset });
    EXPECT_EQ(
        outcome([&] { clientOf(server).exchangeGoogle("c", "r", "i", "v", {}); }), "URLError");
}

} // namespace
} // namespace vesko
