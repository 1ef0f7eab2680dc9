#include "VeskoCore/sync/SharedSet.h"

#include <gmock/gmock.h>
#include <random>
#include <set>

using namespace vesko;
using testing::ElementsAre;

namespace {

std::vector<int> elementsOf(const SharedSet<int>& set)
{
    return { set.begin(), set.end() };
}

} // namespace

TEST(SharedSetTest, anEmptySetHasNothing)
{
    SharedSet<int> set;
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_EQ(set.lowerBound(1), set.end());
    EXPECT_EQ(set.find(1), nullptr);

    set.change({}, { 1 });
    set.change({ 1 }, {});
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_EQ(set.find(1), nullptr);
    EXPECT_EQ(set, SharedSet<int>());
}

TEST(SharedSetTest, takesElementsOutAndInAtOnce)
{
    SharedSet<int> set;
    set.change({}, { 2, 4, 6 });
    set.change({ 2, 6 }, { 1, 6, 9 });
    EXPECT_THAT(elementsOf(set), ElementsAre(1, 4, 6, 9));
    EXPECT_EQ(set.size(), 4u);
}

TEST(SharedSetTest, aCopyStaysAsItWas)
{
    SharedSet<int> set;
    set.change({}, { 1, 2 });
    const auto copy = set;
    set.change({ 1 }, { 3 });
    EXPECT_THAT(elementsOf(copy), ElementsAre(1, 2));
    EXPECT_THAT(elementsOf(set), ElementsAre(2, 3));
    EXPECT_FALSE(set == copy);
}

TEST(SharedSetTest, aChangeSharesTheBlocksThatItDoesNotTouch)
{
    std::vector<std::shared_ptr<int>> many;
    for (int number = 0; number < 1000; ++number)
        many.push_back(std::make_shared<int>(number));
    std::ranges::sort(many);
    SharedSet<std::shared_ptr<int>> set;
    set.change({}, many);

    auto copy = set;
    copy.change({ many[500] }, {});

    const auto copied
        = std::ranges::count_if(many, [](const auto& pointer) { return pointer.use_count() > 2; });
    EXPECT_GT(copied, 0);
    EXPECT_LT(copied, 150);
}

// Against std::set: many small and large changes, up to sizes of many blocks and back to nothing.
TEST(SharedSetTest, isTheSetThatTheStandardOneWouldBe)
{
    std::mt19937 random(20'261'121);
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    for (int round = 0; round < 60; ++round) {
        SharedSet<int> set;
        std::set<int> plain;
        const int range = 1 + below(3000);
        for (int step = 0; step < 40; ++step) {
            std::set<int> going, coming;
            for (int count = below(step % 5 == 0 ? 600 : 8); count > 0; --count) {
                const int element = below(range);
                if (plain.contains(element))
                    going.insert(element);
                else
                    coming.insert(element);
            }
            if (step == 30)
                going = plain;
            set.change({ going.begin(), going.end() }, { coming.begin(), coming.end() });
            for (const int element : going)
                plain.erase(element);
            plain.insert(coming.begin(), coming.end());

            ASSERT_EQ(set.size(), plain.size());
            ASSERT_EQ(elementsOf(set), std::vector(plain.begin(), plain.end()));
            for (int probe = -1; probe <= range; probe += 1 + range / 40) {
                const auto bound = plain.lower_bound(probe);
                const auto ours = set.lowerBound(probe);
                ASSERT_EQ(ours == set.end(), bound == plain.end());
                if (bound != plain.end())
                    ASSERT_EQ(*ours, *bound);
                ASSERT_EQ(set.find(probe) != nullptr, plain.contains(probe));
            }
        }
    }
}
