#pragma once

#include "VeskoCore/library/Recording.h"

#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Which language the user speaks, asked after a dictation.
struct LanguageQuestion {
    std::optional<std::string> detected; // the tag that was found in the transcript
    std::vector<std::string> options; // the tags to offer
    Recording recording; // which another answer than `detected` transcribes again

    bool operator==(const LanguageQuestion&) const = default;
};

} // namespace vesko
