#include "VeskoCore/shell/OnboardingFlow.h"

#include <algorithm>
#include <iterator>

namespace vesko {

std::string_view text(OnboardingStep step)
{
    switch (step) {
    case OnboardingStep::welcome:
        return "welcome";
    case OnboardingStep::howTo:
        return "howTo";
    case OnboardingStep::permissions:
        return "permissions";
    case OnboardingStep::account:
        return "account";
    }
    return {};
}

std::vector<OnboardingStep> OnboardingFlow::steps() const
{
    using enum OnboardingStep;
    if (!hasAccounts)
        return { welcome, howTo, permissions };
    return { welcome, howTo, permissions, account };
}

bool OnboardingFlow::canAdvance(OnboardingStep from) const
{
    return from != OnboardingStep::account || !accountRequired || signedIn;
}

std::optional<OnboardingStep> OnboardingFlow::next(OnboardingStep after) const
{
    if (!canAdvance(after))
        return std::nullopt;
    const auto all = steps();
    const auto here = std::ranges::find(all, after);
    if (here == all.end() || std::next(here) == all.end())
        return std::nullopt;
    return *std::next(here);
}

bool OnboardingFlow::canFinish(OnboardingStep at) const
{
    const auto all = steps();
    return !all.empty() && all.back() == at && canAdvance(at);
}

} // namespace vesko
