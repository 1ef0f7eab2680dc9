#pragma once

#include "VeskoApp/async/Task.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vesko {

// One content in the forms in which it is offered: MIME types, with their bytes.
using ClipboardContent = std::vector<std::pair<std::string, std::string>>;

// Main thread; nothing here waits.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    // Replaces the content by plain text. False if the clipboard did not take it.
    virtual bool setText(const std::string& text) = 0;

    // What stands there now. Empty if nothing does, if it can't be read here, or if it is more than
    // 16 MiB or takes longer than half a second to read.
    static constexpr std::size_t largestContent = 16 << 20;
    static constexpr std::chrono::milliseconds contentPatience{ 500 };
    virtual Task<ClipboardContent> content() { co_return ClipboardContent(); }
    // Puts a content there in place of a text of setText's, if that still stands there. Whether it
    // does now.
    virtual bool giveBack(const ClipboardContent& /*content*/, const std::string& /*insteadOf*/)
    {
        return false;
    }
};

} // namespace vesko
