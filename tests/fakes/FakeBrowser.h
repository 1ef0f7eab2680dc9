#pragma once

#include "VeskoApp/platform/Browser.h"

#include <vector>

namespace vesko {

// Remembers the pages that it was to show.
class FakeBrowser final : public Browser {
public:
    bool missing = false;
    std::vector<std::string> pages;

    bool open(const std::string& url) override
    {
        if (!missing)
            pages.push_back(url);
        return !missing;
    }
};

} // namespace vesko
