#pragma once

#include "VeskoApp/platform/Clipboard.h"

namespace vesko {

// The desktop's clipboard. Needs a QGuiApplication.
class QtClipboard final : public Clipboard {
public:
    bool setText(const std::string& text) override;
};

} // namespace vesko
