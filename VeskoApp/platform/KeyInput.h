#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// The keys that can stand for the Fn key in the gesture.
enum class GestureKey : std::uint8_t { fn, rightControl, rightAlt, menu, pause, scrollLock };

// One key of the user's, seen wherever the focus is. Keys that this program sent are no such
// thing, and neither is the repeat of a held key.
struct KeyEvent {
    enum class Kind : std::uint8_t {
        keyDown, // an ordinary key went down
        flagsChanged, // the gesture key or a modifier went down or up
        interrupted, // events may have been missed
    };
    Kind kind = Kind::keyDown;
    bool isGestureKey = false; // flagsChanged: it was the gesture key that moved
    bool isReturn = false; // keyDown: Return or the keypad's Enter
    bool gestureKeyDown = false; // the gesture key is down now
    bool shiftDown = false; // a Shift key is down now
    bool otherModifiers
        = false; // a Shift, Control, Alt or Super other than the gesture key is down
};

// Watches the keyboard and swallows nothing. Main thread only.
class KeyMonitor {
public:
    virtual ~KeyMonitor() = default;

    // Whether keys can be watched on this desktop.
    virtual bool permitted() const = 0;
    // Whether the keyboard reports an Fn key.
    virtual bool reportsFn() const = 0;
    // Begins to watch, in place of an earlier watch. False if it can't.
    virtual bool start(GestureKey key, std::function<void(const KeyEvent&)> onEvent) = 0;
    virtual void stop() = 0;
};

// The global shortcut Super+Shift+Space. Main thread only.
class GlobalShortcut {
public:
    virtual ~GlobalShortcut() = default;

    // False if another program has it, or this desktop gives none.
    virtual bool install(std::function<void()> onPressed) = 0;
    virtual void remove() = 0;

    // The desktop took its time to say no: it is not to be had, although install() was true.
    std::function<void()> onRefused;
};

} // namespace vesko
