#pragma once

#include "VeskoCore/base/TextRange.h"

#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// Where in a field a pasted text lies: between what stood before and behind the selection that it
// replaced. As long as these two stay, whatever lies between them is what became of it. Pure;
// texts are UTF-8 and compared exactly.
struct InsertedTextScope {
    std::string original; // the inserted text
    std::string prefix; // of the field
    std::string suffix;

    // Of a text that replaces the selection. Nothing for a field over 32,768 UTF-16 units, a
    // selection that does not lie in it or cuts a surrogate pair, and an inserted text that is
    // empty or over 8,000 characters.
    static std::optional<InsertedTextScope> from(
        std::string_view field, TextRange selection, std::string_view inserted);

    // The field's text right after the insertion.
    std::string expectedValue() const { return prefix + original + suffix; }

    // What became of the inserted text in a field that now holds `value`; it may be empty. Nothing
    // if the text around it changed, if the value has over 32,768 characters or the result 8,000.
    std::optional<std::string> editedFragment(std::string_view value) const;

    bool operator==(const InsertedTextScope&) const = default;
};

} // namespace vesko
