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

private:
    Clipboard& m_clipboard;
    Analytics& m_analytics;
    StatusLine& m_status;
};

} // namespace vesko
