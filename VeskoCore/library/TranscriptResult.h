#pragma once

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

    bool operator==(const TranscriptResult&) const = default;
};

} // namespace vesko
