#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/platform/FocusedField.h"

#include <optional>
#include <string>
#include <variant>

namespace vesko {

// Types the platform's paste shortcut, and no other key, into whatever has the focus. Main thread
// only; nothing here waits.
class PasteKeystroke {
public:
    virtual ~PasteKeystroke() = default;

    // A text for another program's field is coming: what takes its time to get ready, or asks the
    // user, begins now. Until release(), or the next send().
    virtual void prepare() { }
    // It comes no more.
    virtual void release() { }

    // Comes when the user holds no key that would change the meaning of the shortcut or keep the
    // field from having the focus, or has had a moment to let go. A user who held one may be about
    // to change the focus by letting go: then it comes after 150 ms in which nothing was held. The
    // keys of this program's own global shortcut, which keeps the field from the keyboard, are
    // released if they are still held after that moment; no other key ever is. The window that has
    // the focus when it comes is the one that send() sends to.
    virtual Eventual<std::monostate> keysReleased() = 0;
    // Why keys would not reach the window that has the focus: "session_locked", "keyboard_grabbed"
    // or "still_asked", as below; nothing if they would.
    virtual std::optional<std::string> keyboardTaken() const = 0;
    // Sends the shortcut that this element's program pastes with, whatever the keyboard layout.
    // Gives why nothing was sent; nothing if it was:
    //   "session_locked"      the user has locked the session
    //   "app_changed"         another window has the focus than after keysReleased()
    //   "keyboard_grabbed"    another program holds the keyboard and would get the keys
    //   "keys_held"           the user holds a key that would make it another shortcut
    //   "modifiers_latched"   so would a modifier that is latched or locked without being held
    //   "slow_keys"           the desktop takes only keys for real that are held for a while
    //   "still_asked"         the desktop asks the user about it, who hasn't answered
    //   "not_allowed"         the user has answered no
    //   "event_failed"        the keyboard lacks a key of it, or the desktop took none
    // All of this is looked at and the keys are sent in one step, in which no other program can do
    // anything. The user's keys, latches and locks are left as they are.
    //
    // What can't be excluded: the shortcut may be another program's global one; the program whose
    // window has the focus may move its focus inside the window after it was read and before it
    // reads the keys; and whoever watches the whole keyboard sees them too.
    virtual Eventual<std::optional<std::string>> send(const FieldElement& element) = 0;
};

} // namespace vesko
