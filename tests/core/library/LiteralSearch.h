#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vesko {

// The definition of a search as it reads, one step after the other: compose the text, look up the
// primary weights of each code point in the root collation, and compare from every place.
class LiteralSearch {
public:
    static bool isFound(const std::string& query, const std::string& text);

private:
    static std::vector<std::uint32_t> letters(const std::string& text);
};

} // namespace vesko
