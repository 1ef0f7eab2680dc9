// Signing in with a code that comes by email.

#include "tests/app/account/AccountTest.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* sent = "We sent a 6-digit code to user@example.com. It works for 10 minutes.";

class AccountStoreEmailTest : public AccountTest {
protected:
    // A code was sent.
    void openWithCode()
    {
        open();
        answer(204, "");
        awaited(store->startEmail("user@example.com"));
        ASSERT_EQ(store->pendingEmail(), "user@example.com");
        events.clear();
    }
};

TEST_F(AccountStoreEmailTest, ACodeIsAskedForAndTheUserIsToldWhereItWent)
{
    open();
    answer(204, "");
    awaited(store->startEmail("  User@Example.COM\n"));
    EXPECT_EQ(server.onlyRequest().body, R"({"email":"user@example.com"})");
    EXPECT_EQ(store->pendingEmail(), "user@example.com");
    EXPECT_EQ(message(), sent);
    EXPECT_EQ(store->busy(), std::nullopt);
    EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted));
    EXPECT_FALSE(store->signedIn());
}

TEST_F(AccountStoreEmailTest, WhatIsNoAddressIsNotSent)
{
    open();
    for (const char* text : { "", "user", "user@example", "us er@example.com" }) {
        awaited(store->startEmail(text));
        EXPECT_EQ(message(), "Enter a valid email address.") << text;
    }
    EXPECT_EQ(server.connections(), 0U);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(store->pendingEmail(), std::nullopt);
}

TEST_F(AccountStoreEmailTest, WithoutAServiceNothingIsBegun)
{
    deployment.baseURL.reset();
    open();
    awaited(store->startEmail("user@example.com"));
    EXPECT_EQ(message(), unconfigured);
    EXPECT_EQ(store->busy(), std::nullopt);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AccountStoreEmailTest, AFailureToSendACodeIsPutIntoWordsAndTheOldAddressStays)
{
    const struct {
        const char* what;
        int status; // 0: the connection breaks
        const char* code;
        std::string message;
    } rows[] = {
        { "no such address", 400, "invalid_email", "Enter a valid email address." },
        { "too often", 429, "rate_limited",
            "Too many requests. Wait a few minutes and try again." },
        { "no email at all", 503, "email_unavailable", unconfigured },
        { "broken", 500, "", unavailable },
        { "gone", 0, "", offline },
    };
    openWithCode();
    for (const auto& [what, status, code, expected] : rows) {
        SCOPED_TRACE(what);
        events.clear();
        if (status == 0)
            server.reply({ .bytes = "", .then = LoopbackServer::Then::reset });
        else
            refuse(status, code);
        awaited(store->startEmail("other@example.com"));
        EXPECT_EQ(message(), expected);
        EXPECT_EQ(store->pendingEmail(), "user@example.com");
        EXPECT_EQ(store->busy(), std::nullopt);
        EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, UsageEvent::signInFailed));
    }
}

TEST_F(AccountStoreEmailTest, TheRightCodeSignsIn)
{
    openWithCode();
    answer(200, signInBody());
    awaited(store->verifyEmail(" 012345\n"));
    EXPECT_EQ(server.requests().back().body, R"({"code":"012345","email":"user@example.com"})");
    ASSERT_TRUE(store->signedIn());
    EXPECT_EQ(*store->account(), account());
    EXPECT_EQ(storedToken(), "fresh");
    EXPECT_EQ(storedAccount(), text(account()));
    EXPECT_EQ(store->pendingEmail(), std::nullopt);
    EXPECT_EQ(message(), "");
    EXPECT_EQ(store->busy(), std::nullopt);
    EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, UsageEvent::signInSucceeded));
}

TEST_F(AccountStoreEmailTest, WithoutAnAddressACodeMeansNothing)
{
    open();
    awaited(store->verifyEmail("012345"));
    awaited(store->verifyEmail("no code"));
    EXPECT_EQ(message(), "");
    EXPECT_EQ(server.connections(), 0U);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(AccountStoreEmailTest, WhatIsNoCodeIsNotSent)
{
    openWithCode();
    for (const char* code : { "", "12345", "1234567", "12 456", "abcdef" }) {
        awaited(store->verifyEmail(code));
        EXPECT_EQ(message(), "That code is not correct. Check the latest email and try again.")
            << code;
    }
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(store->pendingEmail(), "user@example.com");
}

TEST_F(AccountStoreEmailTest, ARefusedCodeKeepsTheAddressAsLongAsAnotherCodeMayWork)
{
    const struct {
        int status;
        std::string body;
        std::string message;
        bool keepsAddress;
    } rows[] = {
        { 401, R"({"error":"invalid_code"})",
            "That code is not correct. Check the latest email and try again.", true },
        { 400, R"({"error":"code_expired"})", "This code has expired. Request a new one.", false },
        { 429, R"({"error":"too_many_attempts"})", "Too many attempts. Request a new code.",
            false },
        { 429, R"({"error":"rate_limited"})",
            "Too many requests. Wait a few minutes and try again.", true },
        { 500, "<html>", unavailable, true },
        { 200, "<html>", unavailable, true },
        { 200, R"({"session":{"token":"fresh","expiresAt":"soon"}})", unavailable, true },
    };
    for (const auto& [status, body, expected, keepsAddress] : rows) {
        SCOPED_TRACE(body);
        openWithCode();
        answer(status, body);
        awaited(store->verifyEmail("012345"));
        EXPECT_EQ(message(), expected);
        EXPECT_EQ(store->pendingEmail().has_value(), keepsAddress);
        EXPECT_FALSE(store->signedIn());
        EXPECT_EQ(store->busy(), std::nullopt);
        EXPECT_EQ(storedToken(), std::nullopt);
        EXPECT_EQ(storedAccount(), "");
        EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, UsageEvent::signInFailed));
    }
}

TEST_F(AccountStoreEmailTest, ATokenThatCannotBeKeptSignsNobodyIn)
{
    openWithCode();
    answer(200, signInBody());
    machineSecrets.lock();
    awaited(store->verifyEmail("012345"));
    EXPECT_EQ(message(), unavailable);
    EXPECT_FALSE(store->signedIn());
    EXPECT_EQ(storedAccount(), "");
    EXPECT_EQ(store->pendingEmail(), "user@example.com");
    EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted, UsageEvent::signInFailed));
}

TEST_F(AccountStoreEmailTest, AFailedSignInLeavesTheStateAsItWas)
{
    putSession();
    openWithCode();
    answer(200, accountBody(account()));
    awaited(store->restore());
    ASSERT_TRUE(store->signedIn());
    refuse(401, "invalid_code");
    awaited(store->verifyEmail("012345"));
    EXPECT_TRUE(store->signedIn());
    EXPECT_EQ(storedToken(), "kept");
}

TEST_F(AccountStoreEmailTest, OnlyOneSignInRunsAtATime)
{
    identities.waits = true;
    openWithCode();
    store->run(store->signInWithGoogle());
    EXPECT_EQ(store->busy(), AuthProvider::google);
    EXPECT_EQ(message(), "");
    awaited(store->startEmail("user@example.com"));
    awaited(store->verifyEmail("012345"));
    awaited(store->signInWithGoogle());
    EXPECT_EQ(store->busy(), AuthProvider::google);
    EXPECT_EQ(message(), "");
    EXPECT_EQ(identities.asked, 1);
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_THAT(events, ElementsAre(UsageEvent::signInStarted));
    // What is wrong by itself is still said.
    awaited(store->startEmail("no address"));
    EXPECT_EQ(message(), "Enter a valid email address.");
}

TEST_F(AccountStoreEmailTest, ObserversHearOfChangesOnly)
{
    open();
    int states = 0, busy = 0, messages = 0, pending = 0;
    QObject::connect(store.get(), &AccountStore::stateChanged, [&] { ++states; });
    QObject::connect(store.get(), &AccountStore::busyChanged, [&] { ++busy; });
    QObject::connect(store.get(), &AccountStore::messageChanged, [&] { ++messages; });
    QObject::connect(store.get(), &AccountStore::pendingEmailChanged, [&] { ++pending; });
    awaited(store->startEmail("no address"));
    awaited(store->startEmail("no address"));
    EXPECT_EQ(messages, 1);
    EXPECT_EQ(busy, 0);
    awaited(store->restore());
    awaited(store->restore());
    EXPECT_EQ(states, 1);
    answer(204, "");
    awaited(store->startEmail("user@example.com"));
    EXPECT_EQ(busy, 2); // on and off
    EXPECT_EQ(pending, 1);
    answer(204, "");
    awaited(store->startEmail("user@example.com"));
    EXPECT_EQ(pending, 1);
}

TEST_F(AccountStoreEmailTest, AnotherAddressCanBeUsed)
{
    openWithCode();
    store->forgetPendingEmail();
    EXPECT_EQ(store->pendingEmail(), std::nullopt);
    awaited(store->verifyEmail("012345"));
    EXPECT_EQ(server.requests().size(), 1U);
}

} // namespace

} // namespace vesko
