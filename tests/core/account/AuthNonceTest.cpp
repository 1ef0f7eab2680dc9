#include "VeskoCore/account/AuthNonce.h"

#include <gtest/gtest.h>

#include <set>

namespace vesko {
namespace {

TEST(AuthNonce, Has43CharactersOfTheURLSafeAlphabet)
{
    std::set<std::string> made;
    std::set<char> seen;
    for (int round = 0; round < 200; ++round) {
        const auto nonce = AuthNonce::make();
        EXPECT_EQ(nonce.size(), 43U);
        seen.insert(nonce.begin(), nonce.end());
        made.insert(nonce);
    }
    EXPECT_EQ(made.size(), 200U); // never the same twice
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    EXPECT_EQ(seen, std::set<char>(alphabet.begin(), alphabet.end()));
}

TEST(AuthNonce, TheCodeChallengeIsThatOfTheStandardsExample)
{
    // RFC 7636, appendix B.
    EXPECT_EQ(AuthNonce::codeChallenge("dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk"),
        "E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM");
}

} // namespace
} // namespace vesko
