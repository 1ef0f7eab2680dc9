#pragma once

#include <string>

namespace vesko {

// The user's web browser. Main thread only.
class Browser {
public:
    virtual ~Browser() = default;

    // Has it show a page; does not wait until it does. False if there is no browser to ask.
    virtual bool open(const std::string& url) = 0;
};

} // namespace vesko
