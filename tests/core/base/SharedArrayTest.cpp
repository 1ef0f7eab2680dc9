#include "VeskoCore/base/SharedArray.h"

#include <gtest/gtest.h>
#include <string>

namespace vesko {
namespace {

using Words = SharedArray<std::string>;

TEST(SharedArray, ACopySharesItsElementsUntilItChanges)
{
    const Words original{ "a", "b", "c" };
    Words copy = original;
    EXPECT_EQ(copy.shared(0), original.shared(0));

    copy.edit(1, [](std::string& word) { word += "!"; });

    EXPECT_EQ(original[1], "b");
    EXPECT_EQ(copy[1], "b!");
    EXPECT_EQ(copy.shared(0), original.shared(0));
    EXPECT_NE(copy.shared(1), original.shared(1));
    EXPECT_EQ(copy.shared(2), original.shared(2));
}

TEST(SharedArray, AppendsSetsAndRemovesWithoutTouchingOtherCopies)
{
    const Words original{ "a", "b", "c" };
    Words copy = original;
    copy.append("d");
    copy.set(0, "A");
    copy.removeIf([](const std::string& word) { return word == "b"; });

    EXPECT_EQ(copy, (Words{ "A", "c", "d" }));
    EXPECT_EQ(copy.back(), "d");
    EXPECT_EQ(original, (Words{ "a", "b", "c" }));
}

TEST(SharedArray, AnEmptyOneHasNoElements)
{
    Words empty;
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(empty.begin(), empty.end());
    EXPECT_EQ(empty, Words(std::vector<std::string>()));
    empty.removeIf([](const std::string&) { return true; });
    EXPECT_EQ(empty.size(), 0U);
    empty.append("a");
    EXPECT_EQ(empty, Words{ "a" });
}

TEST(SharedArray, ComparesByValue)
{
    EXPECT_EQ((Words{ "a", "b" }), (Words{ "a", "b" }));
    EXPECT_NE((Words{ "a", "b" }), (Words{ "a", "c" }));
    EXPECT_NE((Words{ "a", "b" }), (Words{ "a" }));
}

TEST(SharedArray, IsARandomAccessRange)
{
    const Words words{ "c", "a", "b" };
    EXPECT_EQ(words.begin()[2], "b");
    EXPECT_EQ(words.end() - words.begin(), 3);
    EXPECT_EQ(std::ranges::find(words, "a") - words.begin(), 1);
    EXPECT_EQ(words.begin()->size(), 1U);
}

} // namespace
} // namespace vesko
