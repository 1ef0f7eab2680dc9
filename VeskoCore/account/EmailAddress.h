#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// What a user types to sign in by email. Both look at no more than the form: whether an address
// exists is for the code to show that is sent to it.
struct EmailAddress {
    // The address trimmed and in lower case; nothing if it can't be one: more than 254 characters,
    // white space inside, anything but one at-sign, a local part of none or more than 64
    // characters, a domain without a dot inside or with two in a row.
    static std::optional<std::string> normalized(std::string_view text);
    // Whether the text is six digits 0 to 9, and nothing else.
    static bool isCode(std::string_view text);
};

} // namespace vesko
