#pragma once

#include <string>

namespace vesko {

class Clipboard {
public:
    virtual ~Clipboard() = default;

    // Replaces the content by plain text. False if the clipboard did not take it.
    virtual bool setText(const std::string& text) = 0;
};

} // namespace vesko
