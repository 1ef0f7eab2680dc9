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

TEST(AuthNonce, ItsHashIsInLowerCaseHexadecimal)
{
    EXPECT_EQ(AuthNonce::sha256Hex("abc"),
        "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(AuthNonce::sha256Hex("\u00E4"), // its bytes in UTF-8
        "33e6d73fee82904c8d7afb78de1154d1e8dc2a0edb08120e63df5b9385c2d9cc");
}

TEST(AuthNonce, TheCodeChallengeIsThatOfTheStandardsExample)
{
    // RFC 7636, appendix B.
    EXPECT_EQ(AuthNonce::codeChallenge("dBjftJeZ4CVP-mB92K27uhbUJU1p1r_wW1gFWFOEjXk"),
        "E9Melhoa2OwvFrEMTJguCHaoeK1t8URWbuGJSstw-cM");
}

} // namespace
} // namespace vesko
