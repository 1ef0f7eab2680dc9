#include "VeskoCore/account/GoogleAuthorization.h"

#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/account/QueryItems.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

constexpr const char* clientID = "123-abc.apps.googleusercontent.com";
constexpr const char* redirectURI = "com.googleusercontent.apps.123-abc:/oauth2redirect";
constexpr const char* verifier = "dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk";

GoogleAuthorization authorization()
{
    return { clientID, "a nonce", verifier };
}

std::string stateOf(const GoogleAuthorization& question)
{
    return *firstItem(*queryItems(question.url({})), "state")->second;
}

// The code in the redirect, or the name of the failure.
std::string codeOrFailure(const GoogleAuthorization& question, const std::string& redirect)
{
    try {
        return question.codeIn(redirect);
    } catch (const AuthFailure& failure) {
        return failure.name();
    }
}

TEST(GoogleAuthorization, KnowsTheClientIDsOfInstalledApplications)
{
    EXPECT_TRUE(isGoogleClientID(clientID));
    EXPECT_FALSE(isGoogleClientID(""));
    EXPECT_FALSE(isGoogleClientID("123-abc"));
    EXPECT_FALSE(isGoogleClientID("123-abc.apps.googleusercontent.com.example"));
    EXPECT_FALSE(isGoogleClientID("123-abc.googleusercontent.com"));
}

TEST(GoogleAuthorization, LeadsBackByTheReversedClientID)
{
    EXPECT_EQ(googleRedirectScheme(clientID), "com.googleusercontent.apps.123-abc");
    EXPECT_EQ(authorization().redirectURI(), redirectURI);
}

TEST(GoogleAuthorization, AsksWithTheseItemsInThisOrder)
{
    const auto question = authorization();
    const auto url = question.url({});
    EXPECT_TRUE(url.starts_with("https://accounts.google.com/o/oauth2/v2/auth?")) << url;
    EXPECT_EQ(queryItems(url),
        (QueryItems{
            { "client_id", clientID },
            { "redirect_uri", redirectURI },
            { "response_type", "code" },
            { "scope", "openid email" },
            { "nonce", "a nonce" },
            { "state", stateOf(question) },
            { "code_challenge", "E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM" },
            { "code_challenge_method", "S256" },
            { "prompt", "select_account" },
        }));
    EXPECT_EQ(stateOf(question).size(), 43U);
    EXPECT_NE(stateOf(question), stateOf(authorization()));
    EXPECT_EQ(url.find(verifier), std::string::npos);
}

TEST(GoogleAuthorization, TakesTheCodeFromItsOwnRedirectAndFromNoOther)
{
    const auto question = authorization();
    const auto state = stateOf(question);
    const auto foreign = stateOf(authorization());
    const std::string base = std::string(redirectURI) + "?";
    const struct {
        const char* what;
        std::string redirect;
        const char* result;
    } rows[] = {
        { "state and code", base + "state=" + state + "&code=4%2F0Ab", "4/0Ab" },
        { "the other way round, among others", base + "x=1&code=4&scope=email&state=" + state,
            "4" },
        { "two codes", base + "state=" + state + "&code=first&code=second", "first" },
        { "code and error", base + "state=" + state + "&code=4&error=odd", "4" },
        { "an empty code", base + "state=" + state + "&code=", "" },
        { "no query", redirectURI, "unavailable" },
        { "an empty query", base, "unavailable" },
        { "the state of another question", base + "state=" + foreign + "&code=4", "unavailable" },
        { "the state in other letters", base + "state=" + state + "x&code=4", "unavailable" },
        { "no state", base + "code=4", "unavailable" },
        { "a state without a value", base + "state&code=4", "unavailable" },
        { "the right state second", base + "state=" + foreign + "&state=" + state + "&code=4",
            "unavailable" },
        { "no code", base + "state=" + state, "unavailable" },
        { "a code without a value", base + "state=" + state + "&code", "unavailable" },
        { "the user said no", base + "state=" + state + "&error=access_denied", "cancelled" },
        { "any other error", base + "state=" + state + "&error=server_error", "cancelled" },
        { "an error without a value", base + "error", "cancelled" },
        { "a wrong state and an error", base + "state=" + foreign + "&code=4&error=odd",
            "cancelled" },
    };
    for (const auto& [what, redirect, result] : rows)
        EXPECT_EQ(codeOrFailure(question, redirect), result) << what;
}

} // namespace
} // namespace vesko
