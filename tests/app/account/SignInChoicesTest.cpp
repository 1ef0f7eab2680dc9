#include "VeskoApp/account/SignInChoices.h"
#include "tests/app/account/AccountTest.h"

namespace vesko {

namespace {

class SignInChoicesTest : public AccountTest {
protected:
    SignInChoices& show()
    {
        form = std::make_unique<SignInChoices>(open());
        return *form;
    }
    void send(const char* email)
    {
        answer(204, "");
        form->setEmail(QString::fromUtf8(email));
        form->sendCode();
        ASSERT_TRUE(eventually([&] { return form->asksForCode(); }));
    }
    static std::string plain(const QString& text) { return text.toStdString(); }

    std::unique_ptr<SignInChoices> form;
};

TEST_F(SignInChoicesTest, FirstItOffersTheWaysToSignIn)
{
    auto& choices = show();
    EXPECT_FALSE(choices.asksForCode());
    EXPECT_FALSE(choices.canSendCode());
    EXPECT_TRUE(choices.canUseGoogle());
    EXPECT_EQ(plain(choices.googleHelp()), "Opens Google in a private sign-in window");
    EXPECT_FALSE(choices.waitsForBrowser());
    EXPECT_EQ(plain(choices.message()), "");
}

TEST_F(SignInChoicesTest, ACodeCanBeSentToWhatCanBeAnAddress)
{
    auto& choices = show();
    for (const char* email : { "", "user", "user@example", "user@example..com" }) {
        choices.setEmail(QString::fromUtf8(email));
        EXPECT_FALSE(choices.canSendCode()) << email;
    }
    choices.setEmail(QStringLiteral(" User@Example.com "));
    EXPECT_TRUE(choices.canSendCode());
}

TEST_F(SignInChoicesTest, ReturnInTheFieldOfABadAddressSaysWhatIsWrong)
{
    auto& choices = show();
    choices.setEmail(QStringLiteral("user"));
    choices.sendCode();
    EXPECT_EQ(plain(choices.message()), "Enter a valid email address.");
    EXPECT_FALSE(choices.asksForCode());
}

TEST_F(SignInChoicesTest, ThenItAsksForTheCode)
{
    auto& choices = show();
    send("User@example.com");
    EXPECT_EQ(plain(choices.codeNote()), "Enter the 6-digit code sent to user@example.com");
    EXPECT_EQ(plain(choices.message()),
        "We sent a 6-digit code to user@example.com. It works for 10 minutes.");
    EXPECT_EQ(plain(choices.verifyTitle()), "Sign in");
    for (const char* code : { "", "12345", "1234567", "12345a", " 123456" }) {
        choices.setCode(QString::fromUtf8(code));
        EXPECT_FALSE(choices.canVerify()) << code;
    }
    choices.setCode(QStringLiteral("012345"));
    EXPECT_TRUE(choices.canVerify());
    answer(200, signInBody());
    choices.verify();
    EXPECT_EQ(plain(choices.verifyTitle()), "Checking…");
    EXPECT_FALSE(choices.canVerify());
    EXPECT_FALSE(choices.canSendCode());
    EXPECT_FALSE(choices.canUseGoogle());
    ASSERT_TRUE(eventually([&] { return store->signedIn(); }));
    EXPECT_EQ(plain(choices.verifyTitle()), "Sign in");
    EXPECT_FALSE(choices.asksForCode());
}

TEST_F(SignInChoicesTest, AnotherAddressBringsTheWaysToSignInBack)
{
    auto& choices = show();
    send("user@example.com");
    choices.useAnotherEmail();
    EXPECT_FALSE(choices.asksForCode());
    EXPECT_EQ(plain(choices.email()), "user@example.com"); // to be put right
}

TEST_F(SignInChoicesTest, GoogleIsOfferedWhereItIsConfigured)
{
    deployment.googleClientID.reset();
    EXPECT_FALSE(show().canUseGoogle());
    EXPECT_EQ(plain(form->googleHelp()), "Google sign-in is not configured in this build");
    deployment.googleClientID = clientID;
    deployment.baseURL.reset();
    EXPECT_FALSE(show().canUseGoogle());
}

TEST_F(SignInChoicesTest, WhileTheUserIsAtGooglesPageTheFormWaitsAndCanGiveUp)
{
    identities.waits = true;
    auto& choices = show();
    choices.setEmail(QStringLiteral("user@example.com"));
    choices.signInWithGoogle();
    EXPECT_TRUE(choices.waitsForBrowser());
    EXPECT_FALSE(choices.canUseGoogle());
    EXPECT_FALSE(choices.canSendCode());
    choices.cancel();
    EXPECT_FALSE(choices.waitsForBrowser());
    EXPECT_TRUE(choices.canSendCode());
    EXPECT_EQ(plain(choices.message()), "Sign-in was cancelled.");
}

TEST_F(SignInChoicesTest, ASignInGoesOnWhenItsFormIsClosed)
{
    show();
    send("user@example.com");
    form->setCode(QStringLiteral("012345"));
    answer(200, signInBody());
    form->verify();
    form.reset();
    EXPECT_TRUE(eventually([&] { return store->signedIn(); }));
}

TEST_F(SignInChoicesTest, TheFormHearsOfEveryChange)
{
    auto& choices = show();
    int changes = 0;
    QObject::connect(&choices, &SignInChoices::changed, [&] { ++changes; });
    const auto changed = [&] { return std::exchange(changes, 0) > 0; };
    choices.setEmail(QStringLiteral("user"));
    EXPECT_TRUE(changed());
    choices.setEmail(QStringLiteral("user"));
    EXPECT_FALSE(changed());
    choices.setCode(QStringLiteral("1"));
    EXPECT_TRUE(changed());
    choices.setCode(QStringLiteral("1"));
    EXPECT_FALSE(changed());
    choices.sendCode();
    EXPECT_TRUE(changed());
    send("user@example.com");
    EXPECT_TRUE(changed());
    choices.useAnotherEmail();
    EXPECT_TRUE(changed());
}

} // namespace

} // namespace vesko
