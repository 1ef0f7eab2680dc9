#include "VeskoCore/shell/OnboardingFlow.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using enum OnboardingStep;

TEST(OnboardingFlow, HasFourStepsInTheirOrder)
{
    const std::vector expected{ welcome, howTo, permissions, account };
    const std::vector<std::string_view> names{ "welcome", "howTo", "permissions", "account" };
    for (const bool required : { false, true })
        for (const bool signedIn : { false, true })
            EXPECT_EQ((OnboardingFlow{ required, signedIn }.steps()), expected);
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(text(expected[i]), names[i]);
}

TEST(OnboardingFlow, HasNoStepForAccountsInABuildWithoutThem)
{
    const OnboardingFlow flow{ .hasAccounts = false };
    EXPECT_EQ(flow.steps(), (std::vector{ welcome, howTo, permissions }));
    EXPECT_EQ(flow.next(permissions), std::nullopt);
    EXPECT_TRUE(flow.canFinish(permissions));
}

TEST(OnboardingFlow, StopsNowhereButAtARequiredAccount)
{
    for (const bool required : { false, true })
        for (const bool signedIn : { false, true }) {
            const OnboardingFlow flow{ required, signedIn };
            for (const auto step : { welcome, howTo, permissions })
                EXPECT_TRUE(flow.canAdvance(step));
            EXPECT_EQ(flow.canAdvance(account), !required || signedIn);
        }
}

TEST(OnboardingFlow, GoesThroughTheStepsOneByOne)
{
    const OnboardingFlow flow{ .accountRequired = true, .signedIn = false };
    EXPECT_EQ(flow.next(welcome), howTo);
    EXPECT_EQ(flow.next(howTo), permissions);
    EXPECT_EQ(flow.next(permissions), account);
}

TEST(OnboardingFlow, NothingComesBehindTheLastStep)
{
    for (const bool required : { false, true })
        for (const bool signedIn : { false, true })
            EXPECT_EQ((OnboardingFlow{ required, signedIn }.next(account)), std::nullopt);
}

TEST(OnboardingFlow, AStepThatDoesNotExistLeadsNowhere)
{
    const auto unknown = static_cast<OnboardingStep>(99);
    EXPECT_EQ(OnboardingFlow{}.next(unknown), std::nullopt);
    EXPECT_FALSE(OnboardingFlow{}.canFinish(unknown));
    EXPECT_EQ(text(unknown), "");
}

TEST(OnboardingFlow, EndsOnTheLastStepAlone)
{
    for (const bool required : { false, true })
        for (const bool signedIn : { false, true }) {
            const OnboardingFlow flow{ required, signedIn };
            for (const auto step : { welcome, howTo, permissions })
                EXPECT_FALSE(flow.canFinish(step));
            EXPECT_EQ(flow.canFinish(account), !required || signedIn);
        }
}

} // namespace
} // namespace vesko
