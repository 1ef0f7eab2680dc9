#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace vesko {

enum class OnboardingStep { welcome, howTo, permissions, account };

// The step's name.
std::string_view text(OnboardingStep step);

// Which steps the first run has, and when the user may go on. Made anew for each decision from
// what holds then; pure.
struct OnboardingFlow {
    bool accountRequired = false;
    bool signedIn = false;
    bool hasAccounts = true; // the build has an account service

    std::vector<OnboardingStep> steps() const;
    bool canAdvance(OnboardingStep from) const;
    // Nothing if the user may not go on, or behind the last step.
    std::optional<OnboardingStep> next(OnboardingStep after) const;
    // Only on the last step.
    bool canFinish(OnboardingStep at) const;
};

} // namespace vesko
