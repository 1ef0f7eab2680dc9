// A session from one run of the program to the next: restoring it, and ending it.

#include "tests/app/account/AccountTest.h"

#include <atomic>
#include <thread>

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using AccountStoreSessionTest = AccountTest;

TEST_F(AccountStoreSessionTest, NobodyIsKnownUntilSomebodyHasLooked)
{
    open();
    EXPECT_EQ(store->state(), AccountStore::State(AccountStore::Unknown()));
    EXPECT_FALSE(store->signedIn());
    EXPECT_FALSE(store->signedOut());
    EXPECT_EQ(store->account(), nullptr);
    EXPECT_EQ(store->busy(), std::nullopt);
    EXPECT_EQ(message(), "");
    EXPECT_EQ(machineSecrets.loads(), 0);
}

TEST_F(AccountStoreSessionTest, WithoutATokenNobodyIsSignedInAndTheServiceIsNotAsked)
{
    putAccount(text(account()));
    open();
    awaited(store->restore());
    EXPECT_TRUE(store->signedOut());
    EXPECT_EQ(message(), "");
    EXPECT_EQ(server.connections(), 0U);
    EXPECT_EQ(storedAccount(), text(account())); // left in place
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AccountStoreSessionTest, ASecretStoreThatFailsCountsAsNoToken)
{
    putSession();
    machineSecrets.lock();
    open();
    awaited(store->restore());
    EXPECT_TRUE(store->signedOut());
    EXPECT_EQ(message(), "");
    machineSecrets.unlock();
    EXPECT_EQ(storedToken(), "kept");
    EXPECT_EQ(storedAccount(), text(account()));
}

TEST_F(AccountStoreSessionTest, TheServiceSaysWhoIsSignedIn)
{
    putSession("kept", account("old@example.com"));
    open();
    answer(200, accountBody(account("new@example.com")));
    awaited(store->restore());
    ASSERT_TRUE(store->signedIn());
    EXPECT_EQ(*store->account(), account("new@example.com"));
    EXPECT_EQ(storedAccount(), text(account("new@example.com")));
    EXPECT_EQ(server.onlyRequest().startLine, "GET /v1/account HTTP/1.1");
    EXPECT_EQ(server.onlyRequest().header("Authorization"), "Bearer kept");
    EXPECT_EQ(storedToken(), "kept");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AccountStoreSessionTest, TheServiceEndsASession)
{
    const struct {
        const char* what;
        int status;
        const char* body;
    } rows[] = {
        { "by its status", 401, "" },
        { "by its code", 403, R"({"error":"unauthorized"})" },
    };
    for (const auto& [what, status, body] : rows) {
        SCOPED_TRACE(what);
        putSession();
        open();
        answer(status, body);
        awaited(store->restore());
        expectNobody();
        EXPECT_EQ(message(), "");
        EXPECT_THAT(events, IsEmpty());
    }
}

TEST_F(AccountStoreSessionTest, ASessionSurvivesEveryOtherFailureOfTheService)
{
    const struct {
        const char* what;
        int status;
        std::string body;
    } rows[] = {
        { "broken", 500, "<html>" },
        { "busy", 429, "" },
        { "not for this one", 403, "" },
        { "another code at 401", 401, R"({"error":"rate_limited"})" },
        { "no account", 200, "{}" },
        { "an account with an unknown provider", 200,
            R"({"account":{"id":"0123ABCD-4567-89EF-ABCD-EF0123456789","providers":["x"],)"
            R"("createdAt":"2026-11-21T10:52:00Z"}})" },
    };
    for (const auto& [what, status, body] : rows) {
        SCOPED_TRACE(what);
        putSession();
        open();
        answer(status, body);
        awaited(store->restore());
        ASSERT_TRUE(store->signedIn());
        EXPECT_EQ(*store->account(), account());
        EXPECT_EQ(message(), "");
        EXPECT_EQ(storedToken(), "kept");
    }
}

TEST_F(AccountStoreSessionTest, ASessionSurvivesBeingOffline)
{
    putSession();
    goOffline();
    open();
    awaited(store->restore());
    ASSERT_TRUE(store->signedIn());
    EXPECT_EQ(*store->account(), account());
    EXPECT_EQ(message(), "");
}

TEST_F(AccountStoreSessionTest, WithoutACopyOfTheAccountAFailureLeavesNobodySignedIn)
{
    const struct {
        const char* what;
        int status; // 0: offline
        std::string body;
        std::string message;
    } rows[] = {
        { "the service is broken", 500, "", unavailable },
        { "the service is busy", 429, "", "Too many requests. Wait a few minutes and try again." },
        { "the answer can't be read", 200, "<html>", "" },
        { "offline", 0, "", "" },
    };
    for (const auto& [what, status, body, expected] : rows)
        for (const char* copy : { "", "{", R"({"id":"no UUID"})" }) {
            SCOPED_TRACE(std::string(what) + " " + copy);
            machineSecrets.put("vesko-session", "kept");
            settings.values.clear();
            if (*copy)
                putAccount(copy);
            if (status == 0)
                goOffline();
            else
                answer(status, body);
            open();
            awaited(store->startEmail("no address")); // leaves a message
            ASSERT_NE(message(), "");
            awaited(store->restore());
            EXPECT_TRUE(store->signedOut());
            EXPECT_EQ(message(), expected);
            EXPECT_EQ(storedToken(), "kept");
        }
}

TEST_F(AccountStoreSessionTest, ARestoredSessionLeavesTheMessageAsItIs)
{
    for (const int status : { 200, 500, 401 }) {
        putSession();
        open();
        answer(status, accountBody(account()));
        awaited(store->startEmail("no address"));
        awaited(store->restore());
        EXPECT_EQ(message(), "Enter a valid email address.") << status;
    }
}

TEST_F(AccountStoreSessionTest, ACopyOfAnotherKindIsNone)
{
    machineSecrets.put("vesko-session", "kept");
    settings.values.insert_or_assign("veskoAccount", text(account()));
    goOffline();
    open();
    awaited(store->restore());
    EXPECT_TRUE(store->signedOut());
}

TEST_F(AccountStoreSessionTest, WithoutABaseURLTheCopyStandsForTheService)
{
    deployment.baseURL.reset();
    open();
    awaited(store->restore());
    EXPECT_TRUE(store->signedOut());
    EXPECT_EQ(message(), "");

    putSession();
    open();
    awaited(store->restore());
    EXPECT_TRUE(store->signedIn());

    settings.values.clear();
    open();
    awaited(store->restore());
    EXPECT_TRUE(store->signedOut());
    EXPECT_EQ(message(), unconfigured);
}

TEST_F(AccountStoreSessionTest, TheLaunchRestoresWhatAnEarlierRunLeft)
{
    putSession();
    open();
    answer(200, accountBody(account()));
    store->restoreAtLaunch();
    EXPECT_EQ(store->state(), AccountStore::State(AccountStore::Unknown()));
    EXPECT_TRUE(eventually([&] { return store->signedIn(); }));
}

// The copy is lost with damaged settings; the one who was signed in then had to sign in again.
TEST_F(AccountStoreSessionTest, TheLaunchFindsASessionWhoseCopyIsLost)
{
    machineSecrets.put("vesko-session", "kept");
    answer(200, accountBody(account()));
    open();
    store->restoreAtLaunch();
    ASSERT_TRUE(eventually([&] { return store->signedIn(); }));
    EXPECT_EQ(*store->account(), account());
}

TEST_F(AccountStoreSessionTest, TheLaunchUnlocksNothingWhereNobodyWasSignedIn)
{
    open();
    store->restoreAtLaunch();
    ASSERT_TRUE(eventually([&] { return store->signedOut(); }));
    machineSecrets.lock(); // it can't even be asked
    open();
    store->restoreAtLaunch();
    ASSERT_TRUE(eventually([&] { return store->signedOut(); }));
    EXPECT_EQ(machineSecrets.questions(), 2);
    EXPECT_EQ(machineSecrets.loads(), machineSecrets.questions());
    EXPECT_EQ(server.connections(), 0U);
    EXPECT_EQ(message(), "");
}

TEST_F(AccountStoreSessionTest, TheLaunchAsksNoSecretStoreInABuildWithoutAccounts)
{
    machineSecrets.put("vesko-session", "left behind");
    deployment.baseURL = std::nullopt;
    open();
    store->restoreAtLaunch();
    EXPECT_TRUE(store->signedOut());
}

TEST_F(AccountStoreSessionTest, AnAnswerAboutAnEarlierSessionDoesNotOverruleANewOne)
{
    struct Row {
        const char* what;
        int status;
        std::string body;
    };
    for (const auto& [what, status, body] : std::vector<Row>{
             { "confirmed", 200, accountBody(account("old@example.com")) },
             { "ended", 401, "" },
             { "failed", 500, "" },
         }) {
        SCOPED_TRACE(what);
        putSession("kept", account("old@example.com"));
        std::atomic<bool> released = false;
        std::atomic<int> asked = 0;
        transport = [&, status = status, body = body](const HttpRequest& request, const auto&) {
            HTTPResult result{ .data = signInBody(), .status = 200, .requestID = std::nullopt };
            if (!request.url.ends_with("/v1/account"))
                return result;
            if (asked++ == 0) {
                while (!released)
                    std::this_thread::yield();
                result.data = body;
                result.status = status;
            } else {
                result.data = accountBody(account());
            }
            return result;
        };
        open();
        store->restoreAtLaunch();
        ASSERT_TRUE(eventually([&] { return asked == 1; }));
        awaited(store->startEmail("user@example.com"));
        awaited(store->verifyEmail("012345"));
        ASSERT_TRUE(store->signedIn());
        released = true;
        awaited(store->restore()); // answered behind the first one
        ASSERT_TRUE(store->signedIn());
        EXPECT_EQ(*store->account(), account());
        EXPECT_EQ(storedToken(), "fresh");
        EXPECT_EQ(message(), "");
    }
}

TEST_F(AccountStoreSessionTest, SigningOutEndsTheSessionHereAndThere)
{
    putSession();
    open();
    answer(200, accountBody(account()));
    awaited(store->restore());
    answer(204, "");
    awaited(store->signOut());
    expectNobody();
    EXPECT_EQ(message(), "Signed out. Your notes stay on this Mac.");
    EXPECT_THAT(events, ElementsAre(UsageEvent::signedOut));
    const auto request = server.requests().back();
    EXPECT_EQ(request.startLine, "POST /v1/auth/logout HTTP/1.1");
    EXPECT_EQ(request.header("Authorization"), "Bearer kept");
    EXPECT_EQ(request.body, "");
}

TEST_F(AccountStoreSessionTest, SigningOutEndsTheSessionHereWhateverTheServiceSays)
{
    for (const int status : { 0, 401, 500 }) {
        SCOPED_TRACE(status);
        putSession();
        events.clear();
        if (status == 0)
            goOffline();
        else
            answer(status, "");
        open();
        awaited(store->signOut());
        expectNobody();
        EXPECT_EQ(message(), "Signed out. Your notes stay on this Mac.");
        EXPECT_THAT(events, ElementsAre(UsageEvent::signedOut));
    }
}

TEST_F(AccountStoreSessionTest, SigningOutWithoutATokenTellsNobody)
{
    putAccount(text(account()));
    open();
    awaited(store->signOut());
    expectNobody();
    EXPECT_EQ(server.connections(), 0U);
    EXPECT_EQ(message(), "Signed out. Your notes stay on this Mac.");

    putSession();
    machineSecrets.lock(); // it can be neither read nor removed
    open();
    awaited(store->signOut());
    EXPECT_TRUE(store->signedOut());
    EXPECT_EQ(storedAccount(), "");
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(AccountStoreSessionTest, ADeletedAccountIsGoneHereToo)
{
    putSession();
    open();
    answer(200, accountBody(account()));
    awaited(store->restore());
    answer(200, "done");
    EXPECT_TRUE(awaited(store->deleteAccount()));
    expectNobody();
    EXPECT_EQ(
        message(), "Your Vesko account was deleted. Notes and recordings on this Mac were kept.");
    EXPECT_THAT(events, ElementsAre(UsageEvent::accountDeleted));
    const auto request = server.requests().back();
    EXPECT_EQ(request.startLine, "DELETE /v1/account HTTP/1.1");
    EXPECT_EQ(request.header("Authorization"), "Bearer kept");
}

TEST_F(AccountStoreSessionTest, AnAccountThatCouldNotBeDeletedStays)
{
    const struct {
        const char* what;
        int status; // 0: offline
        std::string message;
    } rows[] = {
        { "offline", 0, unavailable },
        { "broken", 500, unavailable },
        { "busy", 429, "Too many requests. Wait a few minutes and try again." },
        { "ended", 401, "Your session has ended. Sign in again." },
    };
    for (const auto& [what, status, expected] : rows) {
        SCOPED_TRACE(what);
        putSession();
        answer(200, accountBody(account()));
        open();
        awaited(store->restore());
        ASSERT_TRUE(store->signedIn());
        if (status == 0) {
            goOffline();
            open();
            awaited(store->restore());
        } else {
            answer(status, "");
        }
        EXPECT_FALSE(awaited(store->deleteAccount()));
        EXPECT_TRUE(store->signedIn());
        EXPECT_EQ(message(), expected);
        EXPECT_EQ(storedToken(), "kept");
        EXPECT_EQ(storedAccount(), text(account()));
        EXPECT_THAT(events, IsEmpty());
    }
}

TEST_F(AccountStoreSessionTest, WithoutATokenNothingIsDeletedAndNothingSaid)
{
    putAccount(text(account()));
    open();
    EXPECT_FALSE(awaited(store->deleteAccount()));
    machineSecrets.lock();
    EXPECT_FALSE(awaited(store->deleteAccount()));
    EXPECT_EQ(message(), "");
    EXPECT_EQ(server.connections(), 0U);
    EXPECT_EQ(storedAccount(), text(account()));
}

TEST_F(AccountStoreSessionTest, TheEndOfTheStoreEndsWhatIsUnderWay)
{
    putSession();
    open();
    server.stopReading();
    store->restoreAtLaunch();
    ASSERT_TRUE(eventually([&] { return server.connections() == 1; }));
    store.reset(); // within moments: the test would run into its time-out
    EXPECT_EQ(storedToken(), "kept");
}

TEST_F(AccountStoreSessionTest, WhetherWhatNeedsAnAccountIsOpenDependsOnTheBuild)
{
    open();
    EXPECT_TRUE(store->admits());
    deployment.required = true;
    putSession();
    open();
    EXPECT_FALSE(store->admits());
    answer(200, accountBody(account()));
    awaited(store->restore());
    EXPECT_TRUE(store->admits());
}

} // namespace

} // namespace vesko
