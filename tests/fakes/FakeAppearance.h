#pragma once

#include "VeskoApp/platform/Appearance.h"

namespace vesko {

class FakeAppearance final : public Appearance {
public:
    std::optional<bool> prefersDark;
    bool prefersStillness = false;
    bool prefersContrast = false;

    std::optional<bool> dark() const override { return prefersDark; }
    bool reduceMotion() const override { return prefersStillness; }
    bool highContrast() const override { return prefersContrast; }
};

} // namespace vesko
