#pragma once

#include <optional>
#include <string>

namespace vesko {

// Tells on this machine in which language a text is written. Main thread; quick, for however long
// a text.
class TextLanguageRecognizer {
public:
    struct Finding {
        std::string language; // a tag, such as "en" or "zh-Hant"
        double confidence = 0; // 0 to 1

        bool operator==(const Finding&) const = default;
    };

    virtual ~TextLanguageRecognizer() = default;

    // The language that fits best; nothing if none does.
    virtual std::optional<Finding> recognize(const std::string& text) const = 0;
};

} // namespace vesko
