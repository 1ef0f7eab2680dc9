#pragma once

#include <cmath>
#include <optional>
#include <string>

namespace vesko {

// What a speech run hands to the library. Not persisted as such.
struct TranscriptResult {
    std::string rawText; // as the back end gave it
    std::string text; // after the text steps
    std::optional<double> cost; // United States dollars
    std::optional<std::string> requestID;
    std::optional<std::string> warning; // stands beside a success
    std::optional<std::string> model = {}; // who did it, where that was not known before
    std::optional<std::string> language = {}; // the tag of what was detected

    bool operator==(const TranscriptResult&) const = default;
};

// Known only if both parts of it are. What no number can hold, no one was charged.
inline std::optional<double> sumOfCosts(std::optional<double> a, std::optional<double> b)
{
    if (!a || !b || !std::isfinite(*a + *b))
        return std::nullopt;
    return *a + *b;
}

} // namespace vesko
