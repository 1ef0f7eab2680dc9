#pragma once

#include "VeskoApp/platform/Clipboard.h"

#include <chrono>
#include <cstddef>

namespace vesko {

// What the X11 clipboard holds, in the forms in which another program gets it back: plain text, and
// what is named by a MIME type, of pictures one form. Empty if there is nothing, if all together is
// larger than `limit` bytes, or if the owner took longer than `patience`. Waits: for a thread of
// its own, over a connection of its own.
ClipboardContent readX11Clipboard(std::size_t limit, std::chrono::milliseconds patience);

} // namespace vesko
