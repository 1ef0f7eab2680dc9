#pragma once

#include "VeskoApp/platform/Browser.h"

namespace vesko {

// The browser that the desktop has for web pages, asked through xdg-open.
class DesktopBrowser final : public Browser {
public:
    bool open(const std::string& url) override;
};

} // namespace vesko
