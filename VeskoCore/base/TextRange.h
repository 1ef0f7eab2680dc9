#pragma once

#include <cstdint>

namespace vesko {

// A stretch of a text, in UTF-16 code units, as accessibility counts.
struct TextRange {
    std::int64_t location = 0;
    std::int64_t length = 0;

    bool operator==(const TextRange&) const = default;
};

} // namespace vesko
