// The way to Google's page and back.

#include "VeskoApp/account/SystemIdentityProviders.h"
#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/account/AuthNonce.h"
#include "VeskoCore/account/QueryItems.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeBrowser.h"
#include "tests/fakes/TestClock.h"

namespace vesko {

namespace {

constexpr const char* clientID = "123-abc.apps.googleusercontent.com";
constexpr const char* redirectURI = "com.googleusercontent.apps.123-abc:/oauth2redirect";

class SystemIdentityProvidersTest : public testing::Test {
protected:
    // Begins a sign-in, whose end comes into `result`.
    void begin()
    {
        result.clear();
        tasks.spawn([](SystemIdentityProvidersTest& test) -> Task<> {
            try {
                const auto google
                    = co_await test.providers.googleAuthorizationCode(clientID, "once", "proof");
                EXPECT_EQ(google.redirectURI, redirectURI);
                test.result = "code " + google.code;
            } catch (const AuthFailure& failure) {
                test.result = failure.name();
            }
        }(*this));
    }
    std::string item(const char* name) const
    {
        const auto items = queryItems(browser.pages.back());
        return *firstItem(*items, name)->second;
    }
    std::string goodRedirect() const
    {
        return std::string(redirectURI) + "?state=" + item("state") + "&code=4";
    }

    FakeBrowser browser;
    TestClock clock;
    SystemIdentityProviders providers{ browser, clock,
        { .authorization = "https://google.example/auth" } };
    std::string result; // empty while the user is at the page
    TaskScope tasks;
};

TEST_F(SystemIdentityProvidersTest, ThePageIsShownInTheBrowserAndLeadsBack)
{
    begin();
    ASSERT_EQ(browser.pages.size(), 1U);
    EXPECT_TRUE(browser.pages.back().starts_with("https://google.example/auth?client_id="));
    EXPECT_EQ(item("client_id"), clientID);
    EXPECT_EQ(item("redirect_uri"), redirectURI);
    EXPECT_EQ(item("nonce"), "once");
    EXPECT_EQ(item("code_challenge"), AuthNonce::codeChallenge("proof"));
    EXPECT_EQ(result, "");
    providers.handleRedirect(goodRedirect());
    EXPECT_EQ(result, "code 4");
    EXPECT_EQ(clock.armed(), 0U);
}

TEST_F(SystemIdentityProvidersTest, ARedirectOfAnotherQuestionIsRefused)
{
    begin();
    const auto stale = goodRedirect();
    providers.cancel();
    EXPECT_EQ(result, "cancelled");
    const struct {
        const char* what;
        std::string redirect;
        const char* result;
    } rows[] = {
        { "of an earlier sign-in", stale, "unavailable" },
        { "of nobody", std::string(redirectURI) + "?state=x&code=4", "unavailable" },
        { "without anything", redirectURI, "unavailable" },
        { "with a foreign state and an error",
            std::string(redirectURI) + "?state=x&error=access_denied", "cancelled" },
    };
    for (const auto& [what, redirect, expected] : rows) {
        begin();
        providers.handleRedirect(redirect);
        EXPECT_EQ(result, expected) << what;
    }
}

TEST_F(SystemIdentityProvidersTest, ARedirectCountsOnce)
{
    begin();
    const auto redirect = goodRedirect();
    providers.handleRedirect(redirect);
    ASSERT_EQ(result, "code 4");
    providers.handleRedirect(redirect); // nobody waits for it
    begin();
    EXPECT_EQ(result, "");
    providers.handleRedirect(redirect);
    EXPECT_EQ(result, "unavailable");
}

TEST_F(SystemIdentityProvidersTest, AnAddressOfAnotherSchemeIsNoRedirect)
{
    providers.handleRedirect("com.googleusercontent.apps.123-abc:/oauth2redirect?state=x&code=4");
    begin();
    const auto state = "?state=" + item("state") + "&code=4";
    for (const auto& address : { std::string(""), "https://example.com/" + state,
             "com.googleusercontent.apps.123-abcd:/oauth2redirect" + state,
             "com.googleusercontent.apps.123:/oauth2redirect" + state,
             std::string("com.googleusercontent.apps.123-abc") }) {
        providers.handleRedirect(address);
        EXPECT_EQ(result, "") << address;
    }
    auto redirect = goodRedirect();
    redirect.replace(0, 3, "COM");
    providers.handleRedirect(redirect);
    EXPECT_EQ(result, "code 4");
}

TEST_F(SystemIdentityProvidersTest, WithoutABrowserThereIsNoSignIn)
{
    browser.missing = true;
    begin();
    EXPECT_EQ(result, "unavailable");
    EXPECT_EQ(clock.armed(), 0U);
}

TEST_F(SystemIdentityProvidersTest, APageThatIsLeftAloneCountsAsCancelled)
{
    begin();
    clock.turn(599);
    EXPECT_EQ(result, "");
    const auto late = goodRedirect();
    clock.turn(1);
    EXPECT_EQ(result, "cancelled");
    providers.handleRedirect(late);
    EXPECT_EQ(result, "cancelled");
}

} // namespace

} // namespace vesko
