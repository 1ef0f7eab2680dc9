#pragma once

#include "VeskoApp/analytics/Analytics.h"
#include "VeskoApp/platform/Clipboard.h"
#include "VeskoApp/status/StatusLine.h"

#include <string>

namespace vesko {

// Puts text on the clipboard, and says so. Main thread.
class TextCopy {
public:
    TextCopy(Clipboard& clipboard, Analytics& analytics, StatusLine& status);

    // False, with the reason in the error line, if that failed.
    bool copy(const std::string& text);
    // What is there before a copy, and what brings it back after one: see Clipboard.
    Task<ClipboardContent> content() { return m_clipboard.content(); }
    bool giveBack(const ClipboardContent& content, const std::string& insteadOf)
    {
        return m_clipboard.giveBack(content, insteadOf);
    }

private:
    Clipboard& m_clipboard;
    Analytics& m_analytics;
    StatusLine& m_status;
};

} // namespace vesko
