#pragma once

#include <string>

namespace vesko {

// A spelling that the user corrected, offered to the dictionary. Not persisted.
struct DictionarySuggestion {
    std::string original; // the word as it was inserted
    std::string replacement; // the word as the user left it
    bool automatic = false; // alike enough to be learned without review

    bool operator==(const DictionarySuggestion&) const = default;
};

} // namespace vesko
