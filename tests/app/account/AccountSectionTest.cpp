#include "VeskoApp/account/AccountSection.h"
#include "tests/app/account/AccountTest.h"

namespace vesko {

namespace {

class AccountSectionTest : public AccountTest {
protected:
    AccountSection& show(const VeskoAccount& of)
    {
        putSession("kept", of);
        section = std::make_unique<AccountSection>(open());
        answer(200, accountBody(of));
        awaited(store->restore());
        EXPECT_TRUE(section->signedIn());
        return *section;
    }
    std::unique_ptr<AccountSection> section;
};

TEST_F(AccountSectionTest, SignedOutItHasNothingToSay)
{
    const AccountSection empty(open());
    EXPECT_FALSE(empty.signedIn());
    EXPECT_EQ(empty.signedInAs(), QString());
    EXPECT_EQ(empty.method(), QString());
}

TEST_F(AccountSectionTest, ABuildWithoutAServiceHasNone)
{
    EXPECT_TRUE(AccountSection(open()).available());
    deployment.baseURL.reset();
    EXPECT_FALSE(AccountSection(open()).available());
}

TEST_F(AccountSectionTest, ItSaysWhoIsSignedInAndHow)
{
    auto user = account();
    EXPECT_EQ(show(user).signedInAs().toStdString(), "user@example.com");
    EXPECT_EQ(section->method().toStdString(), "Email");
    user.email.reset();
    user.providers = { AuthProvider::email, AuthProvider::apple, AuthProvider::google };
    EXPECT_EQ(show(user).signedInAs().toStdString(), "Apple ID with hidden email");
    EXPECT_EQ(section->method().toStdString(), "Email, Apple, Google");
    user.providers.clear();
    EXPECT_EQ(show(user).method().toStdString(), "");
}

TEST_F(AccountSectionTest, ItFollowsTheState)
{
    auto& shown = show(account());
    int changes = 0;
    QObject::connect(&shown, &AccountSection::changed, [&] { ++changes; });
    answer(204, "");
    shown.signOut();
    EXPECT_TRUE(eventually([&] { return !shown.signedIn(); }));
    EXPECT_EQ(changes, 1);
}

TEST_F(AccountSectionTest, TheAccountIsDeletedOnlyInAnswerToTheQuestion)
{
    auto& shown = show(account());
    shown.deleteAccount();
    drainEvents();
    EXPECT_EQ(server.requests().size(), 1U);

    shown.askToDelete();
    EXPECT_TRUE(shown.confirmsDeletion());
    shown.keepAccount();
    EXPECT_FALSE(shown.confirmsDeletion());
    shown.deleteAccount();
    drainEvents();
    EXPECT_EQ(server.requests().size(), 1U);

    shown.askToDelete();
    answer(204, "");
    shown.deleteAccount();
    EXPECT_FALSE(shown.confirmsDeletion());
    EXPECT_TRUE(eventually([&] { return store->signedOut(); }));
    EXPECT_EQ(server.requests().back().startLine, "DELETE /v1/account HTTP/1.1");
}

TEST_F(AccountSectionTest, ADeletionThatFailedShowsOnlyInTheFormOfWhoIsSignedOut)
{
    auto& shown = show(account());
    shown.askToDelete();
    answer(500, "");
    shown.deleteAccount();
    ASSERT_TRUE(eventually([&] { return message() == unavailable; }));
    EXPECT_TRUE(shown.signedIn());
}

TEST_F(AccountSectionTest, TheQuestionGoesWithTheAccount)
{
    auto& shown = show(account());
    shown.askToDelete();
    answer(204, "");
    awaited(store->signOut());
    EXPECT_FALSE(shown.confirmsDeletion());
    shown.askToDelete();
    EXPECT_FALSE(shown.confirmsDeletion());
}

} // namespace

} // namespace vesko
