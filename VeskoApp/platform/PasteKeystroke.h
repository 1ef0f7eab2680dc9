#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/platform/FocusedField.h"

#include <variant>

namespace vesko {

// Types the platform's paste shortcut, and no other key, into whatever has the focus. Main thread
// only; nothing here waits.
class PasteKeystroke {
public:
    virtual ~PasteKeystroke() = default;

    // Comes when the user holds no key that would change the meaning of the shortcut or keep the
    // field from having the focus, or has had a moment to let go. Keys still held then are
    // released by send.
    virtual Eventual<std::monostate> keysReleased() = 0;
    // Sends the shortcut that this element's program pastes with, whatever the keyboard layout.
    // False if it could not be sent.
    virtual Eventual<bool> send(const FieldElement& element) = 0;
};

} // namespace vesko
