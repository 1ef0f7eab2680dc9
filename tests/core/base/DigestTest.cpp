#include "VeskoCore/base/Digest.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(Digest, IsThatOfTheStandardsExamples)
{
    EXPECT_EQ(hexadecimal(sha256("")),
        "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(hexadecimal(sha256("abc")),
        "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256(std::string(1'000'000, 'a')).size(), 32U);
}

TEST(Digest, HexadecimalHasTwoLowerCaseDigitsAByte)
{
    EXPECT_EQ(hexadecimal(std::string_view("\x00\x0A\x7F\xFF", 4)), "000a7fff");
}

TEST(Digest, Base64IsThatOfTheStandardsExamples)
{
    const std::pair<std::string, std::string> rows[] = {
        { "", "" }, { "f", "Zg==" }, { "fo", "Zm8=" }, { "foo", "Zm9v" }, { "foob", "Zm9vYg==" },
        { "fooba", "Zm9vYmE=" }, { "foobar", "Zm9vYmFy" },
        { "recorded sound", "cmVjb3JkZWQgc291bmQ=" }, // longer than a short text
    };
    for (const auto& [bytes, text] : rows)
        EXPECT_EQ(base64(bytes), text);
}

TEST(Digest, TheURLSafeFormHasNoCharacterThatAURLWouldEncode)
{
    EXPECT_EQ(base64("\xFB\xEF\xFF\xFE"), "++///g==");
    EXPECT_EQ(base64URL("\xFB\xEF\xFF\xFE"), "--___g");
    EXPECT_EQ(base64URL(""), "");
}

} // namespace
} // namespace vesko
