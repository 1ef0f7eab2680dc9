#pragma once

#include "VeskoApp/platform/Clipboard.h"

#include <optional>

namespace vesko {

class FakeClipboard final : public Clipboard {
public:
    bool works = true;
    std::optional<std::string> text; // that was last put there

    bool setText(const std::string& content) override
    {
        if (works)
            text = content;
        return works;
    }
};

} // namespace vesko
