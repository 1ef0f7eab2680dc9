#include "VeskoCore/base/Uuid.h"

#include <gtest/gtest.h>
#include <set>

namespace vesko {
namespace {

TEST(Uuid, ReadsEitherCaseAndWritesUpperCase)
{
    const auto id = Uuid::parse("0123abcd-4567-89EF-abcd-ef0123456789");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->text(), "0123ABCD-4567-89EF-ABCD-EF0123456789");
    EXPECT_EQ(Uuid::parse(id->text()), id);
}

TEST(Uuid, RefusesEveryOtherForm)
{
    for (const std::string text : {
             "", // nothing
             "0123ABCD-4567-89EF-ABCD-EF012345678", // one short
             "0123ABCD-4567-89EF-ABCD-EF01234567890", // one long
             "0123ABCD456789EFABCDEF0123456789", // no dashes
             "0123ABCD-4567-89EF-ABCDEEF0123456789", // a digit for a dash
             "0123ABCD-4567-89EF-ABCD--F0123456789", // a dash for a digit
             "0123ABCG-4567-89EF-ABCD-EF0123456789", // no such digit
             "{123ABCD-4567-89EF-ABCD-EF012345678}", // braces
             " 123ABCD-4567-89EF-ABCD-EF0123456789", // a blank
         })
        EXPECT_FALSE(Uuid::parse(text)) << text;
    EXPECT_FALSE(Uuid::parse(std::string(36, '\0')));
}

TEST(Uuid, RandomOnesAreOfVersionFourAndDiffer)
{
    std::set<Uuid> seen;
    for (int count = 0; count < 1000; ++count) {
        const auto id = Uuid::random();
        EXPECT_EQ(id.text()[14], '4');
        EXPECT_NE(std::string("89AB").find(id.text()[19]), std::string::npos);
        seen.insert(id);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

TEST(Uuid, EqualOnesHashAlike)
{
    const auto id = Uuid::random();
    EXPECT_EQ(std::hash<Uuid>{}(id), std::hash<Uuid>{}(*Uuid::parse(id.text())));
    EXPECT_EQ(Uuid().text(), "00000000-0000-0000-0000-000000000000");
}

} // namespace
} // namespace vesko
