#pragma once

#include "VeskoApp/platform/TextLanguageRecognizer.h"

#include <vector>

namespace vesko {

// Finds in every text what a test tells it to.
class FakeTextLanguageRecognizer final : public TextLanguageRecognizer {
public:
    std::optional<Finding> finding;
    mutable std::vector<std::string> texts; // that it was asked about

    std::optional<Finding> recognize(const std::string& text) const override
    {
        texts.push_back(text);
        return finding;
    }
};

} // namespace vesko
