#pragma once

#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/Clipboard.h"

namespace vesko {

// The desktop's clipboard. Needs a QGuiApplication.
class QtClipboard : public Clipboard {
public:
    bool setText(const std::string& text) override;
    // On X11 alone: elsewhere only the program in front may read it.
    Task<ClipboardContent> content() override;
    bool giveBack(const ClipboardContent& content, const std::string& insteadOf) override;

private:
    Worker m_worker;
};

} // namespace vesko
