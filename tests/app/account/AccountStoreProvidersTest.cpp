// Signing in with Google, behind the interface to its page.

#include "VeskoCore/account/QueryItems.h"
#include "tests/app/account/AccountTest.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using AccountStoreProvidersTest = AccountTest;

TEST_F(AccountStoreProvidersTest, GooglesCodeBecomesASession)
{
    open();
    answer(200, R"({"id_token":"google's id","access_token":"x"})");
    answer(200, signInBody());
    awaited(store->signInWithGoogle());
    ASSERT_TRUE(store->signedIn());
    EXPECT_EQ(storedToken(), "fresh");
    EXPECT_EQ(message(), "");
    EXPECT_EQ(store->busy(), std::nullopt);
    EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, UsageEvent::signInSucceeded));

    EXPECT_EQ(identities.clientID, clientID);
    EXPECT_EQ(identities.nonce.size(), 43U);
    EXPECT_EQ(identities.verifier.size(), 43U);
    EXPECT_NE(identities.nonce, identities.verifier);
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].startLine, "POST /token HTTP/1.1");
    EXPECT_EQ(queryItems("?" + requests[0].body),
        (QueryItems{
            { "code", "google's code" },
            { "client_id", clientID },
            { "code_verifier", identities.verifier },
            { "redirect_uri", "scheme:/oauth2redirect" },
            { "grant_type", "authorization_code" },
        }));
    EXPECT_EQ(requests[1].startLine, "POST /v1/auth/google HTTP/1.1");
    EXPECT_EQ(
        requests[1].body, R"({"idToken":"google's id","nonce":")" + identities.nonce + R"("})");
}

TEST_F(AccountStoreProvidersTest, AFailureOfAnyStepIsPutIntoWords)
{
    struct Case {
        const char* what;
        std::optional<AuthFailure> page;
        LoopbackServer::Reply token;
        LoopbackServer::Reply session;
        std::string message;
        UsageEvent event;
    };
    const auto idToken = LoopbackServer::answer(200, R"({"id_token":"x"})");
    const auto signIn = LoopbackServer::answer(200, signInBody());
    const LoopbackServer::Reply broken{ .bytes = "", .then = LoopbackServer::Then::reset };
    const std::vector<Case> cases{
        { "the user closed the page", AuthFailure::cancelled, idToken, signIn,
            "Sign-in was cancelled.", UsageEvent::signInCancelled },
        { "the page could not be shown", AuthFailure::unavailable, idToken, signIn, unavailable,
            UsageEvent::signInFailed },
        { "Google refuses the code", std::nullopt, LoopbackServer::answer(400, ""), signIn,
            unavailable, UsageEvent::signInFailed },
        { "Google says 201", std::nullopt, LoopbackServer::answer(201, R"({"id_token":"x"})"),
            signIn, unavailable, UsageEvent::signInFailed },
        { "Google is out of reach", std::nullopt, broken, signIn, offline,
            UsageEvent::signInFailed },
        { "the service knows no Google", std::nullopt, idToken,
            LoopbackServer::answer(503, R"({"error":"google_unconfigured"})"), unconfigured,
            UsageEvent::signInFailed },
        { "the service is out of reach", std::nullopt, idToken, broken, offline,
            UsageEvent::signInFailed },
    };
    for (const auto& [what, page, token, session, expected, event] : cases) {
        SCOPED_TRACE(what);
        LoopbackServer fresh;
        deployment.baseURL = fresh.url();
        deployment.google.token = fresh.url() + "/token";
        fresh.reply(token);
        fresh.reply(session);
        events.clear();
        identities.refusal = page;
        open();
        awaited(store->signInWithGoogle());
        EXPECT_EQ(message(), expected);
        EXPECT_FALSE(store->signedIn());
        EXPECT_EQ(store->busy(), std::nullopt);
        EXPECT_EQ(storedToken(), std::nullopt);
        EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, event));
        if (page)
            EXPECT_EQ(fresh.connections(), 0U);
    }
}

TEST_F(AccountStoreProvidersTest, WithoutAClientIDThereIsNoGoogle)
{
    deployment.googleClientID.reset();
    open();
    EXPECT_FALSE(store->googleAvailable());
    awaited(store->signInWithGoogle());
    EXPECT_EQ(message(), unconfigured);
    EXPECT_EQ(identities.asked, 0);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AccountStoreProvidersTest, WithoutAServiceThereIsNoGoogleEither)
{
    open();
    EXPECT_TRUE(store->googleAvailable());
    deployment.baseURL.reset();
    open();
    EXPECT_FALSE(store->googleAvailable());
    awaited(store->signInWithGoogle());
    EXPECT_EQ(message(), unconfigured);
    EXPECT_EQ(identities.asked, 0);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AccountStoreProvidersTest, AnUnfinishedSignInCanBeCancelled)
{
    identities.waits = true;
    open();
    store->run(store->signInWithGoogle());
    ASSERT_EQ(store->busy(), AuthProvider::google);
    store->cancelSignIn();
    EXPECT_EQ(store->busy(), std::nullopt);
    EXPECT_EQ(message(), "Sign-in was cancelled.");
    EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, UsageEvent::signInCancelled));
}

} // namespace

} // namespace vesko
