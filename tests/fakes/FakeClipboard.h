#pragma once

#include "VeskoApp/platform/Clipboard.h"

#include <optional>

namespace vesko {

class FakeClipboard final : public Clipboard {
public:
    bool works = true;
    std::optional<std::string> text; // that was last put there
    ClipboardContent before; // what stands there when that is asked for
    ClipboardContent given; // what was given back
    bool takenByOther = false; // somebody copied something since

    bool setText(const std::string& content) override
    {
        if (works)
            text = content;
        return works;
    }
    Task<ClipboardContent> content() override { co_return before; }
    bool giveBack(const ClipboardContent& content, const std::string& insteadOf) override
    {
        if (content.empty() || takenByOther || text != insteadOf)
            return false;
        given = content;
        return true;
    }
};

} // namespace vesko
