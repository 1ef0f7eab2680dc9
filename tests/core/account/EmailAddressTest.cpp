#include "VeskoCore/account/EmailAddress.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

std::string times(std::size_t count, const std::string& text)
{
    std::string result;
    for (std::size_t round = 0; round < count; ++round)
        result += text;
    return result;
}

TEST(EmailAddress, IsTrimmedAndInLowerCase)
{
    const struct {
        const char* what;
        std::string typed;
        std::string normalized;
    } rows[] = {
        { "as it is", "user@example.com", "user@example.com" },
        { "mixed case in blanks and a line feed", "  User.Name@Example.COM \n",
            "user.name@example.com" },
        { "other kinds of white space around", "\t\u00A0user@example.com\u2003\r\n",
            "user@example.com" },
        { "capitals beyond ASCII", "ÄRGER@Example.com", "ärger@example.com" },
        { "one letter before the sign", "a@example.com", "a@example.com" },
        { "one letter in a label", "user@a.b", "user@a.b" },
        { "an underscore in the domain", "user@my_host.example", "user@my_host.example" },
        { "a plus before the sign", "user+tag@example.com", "user+tag@example.com" },
        { "signs that nobody checks", "<>\"@\u4E2D.\u6587", "<>\"@\u4E2D.\u6587" },
        { "64 characters before the sign", times(64, "a") + "@example.com",
            times(64, "a") + "@example.com" },
        { "64 characters of several code points", times(64, "e\u0301") + "@example.com",
            times(64, "e\u0301") + "@example.com" },
        { "254 characters in all", "user@" + times(245, "d") + ".com",
            "user@" + times(245, "d") + ".com" },
    };
    for (const auto& [what, typed, normalized] : rows)
        EXPECT_EQ(EmailAddress::normalized(typed), normalized) << what;
}

TEST(EmailAddress, RefusesWhatHasNotItsForm)
{
    const struct {
        const char* what;
        std::string typed;
    } rows[] = {
        { "nothing", "" },
        { "only white space", " \n " },
        { "no sign", "example.com" },
        { "two signs", "user@host@example.com" },
        { "nothing before the sign", "@example.com" },
        { "nothing behind the sign", "user@" },
        { "no dot in the domain", "user@example" },
        { "a dot in front of the domain", "user@.example.com" },
        { "a dot behind the domain", "user@example.com." },
        { "two dots in a row in the domain", "user@example..com" },
        { "a blank before the sign", "us er@example.com" },
        { "a blank in the domain", "user@exa mple.com" },
        { "a line feed inside", "user@\nexample.com" },
        { "a no-break space inside", "us\u00A0er@example.com" },
        { "65 characters before the sign", times(65, "a") + "@example.com" },
        { "255 characters in all", "user@" + times(246, "d") + ".com" },
    };
    for (const auto& [what, typed] : rows)
        EXPECT_EQ(EmailAddress::normalized(typed), std::nullopt) << what;
}

TEST(EmailAddress, ACodeIsSixDigits)
{
    EXPECT_TRUE(EmailAddress::isCode("000000"));
    EXPECT_TRUE(EmailAddress::isCode("123456"));
    EXPECT_TRUE(EmailAddress::isCode("987650"));
    const struct {
        const char* what;
        std::string text;
    } rows[] = {
        { "nothing", "" },
        { "five digits", "12345" },
        { "seven digits", "1234567" },
        { "a blank among them", "123 56" },
        { "white space around", " 123456 " },
        { "a letter", "12345a" },
        { "a sign", "-12345" },
        { "Arabic-Indic digits", "\u0661\u0662\u0663\u0664\u0665\u0666" },
        { "full-width digits", "\uFF11\uFF12" },
        { "a line end of two characters as one", "12345\r\n" },
        { "digits with a mark on one", "12345\u0301" },
    };
    for (const auto& [what, text] : rows)
        EXPECT_FALSE(EmailAddress::isCode(text)) << what;
}

} // namespace
} // namespace vesko
