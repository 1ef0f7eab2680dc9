#include "VeskoCore/base/SharedText.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(SharedText, ACopySharesTheTextUntilItBecomesAnother)
{
    const SharedText original = "heard";
    SharedText copy = original;
    EXPECT_TRUE(copy.sharedWith(original));

    copy += " and more";

    EXPECT_EQ(copy, "heard and more");
    EXPECT_EQ(original, "heard");
    EXPECT_FALSE(copy.sharedWith(original));
}

TEST(SharedText, IsEqualToTheSameTextWhereverItStands)
{
    const SharedText text = "heard";
    EXPECT_EQ(text, SharedText("heard"));
    EXPECT_EQ(text, std::string("heard"));
    EXPECT_NE(text, SharedText("herd"));
    EXPECT_NE(text, "heard\n");
}

TEST(SharedText, IsEmptyAtFirst)
{
    const SharedText none;
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(none.size(), 0U);
    EXPECT_EQ(static_cast<const std::string&>(none), "");
    EXPECT_EQ(none, SharedText(""));
}

} // namespace
} // namespace vesko
