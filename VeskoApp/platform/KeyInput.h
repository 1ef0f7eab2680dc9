#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// The keys that can stand for the Fn key in the gesture.
enum class GestureKey : std::uint8_t { fn, rightControl, rightAlt, menu, pause, scrollLock };

// A key and what makes a global shortcut of it.
struct KeyCombination {
    bool control = false;
    bool alt = false;
    bool shift = true;
    bool super = true;
    std::string key = "SPCE"; // its place on the keyboard, as the X keyboard extension calls it

    bool operator==(const KeyCombination&) const = default;
};

// One key of the user's, seen wherever the focus is, or a button of the pointer. Keys that this
// program sent are no such thing, and neither is the repeat of a held key.
struct KeyEvent {
    enum class Kind : std::uint8_t {
        keyDown, // an ordinary key went down
        buttonDown, // a button went down, or the wheel was turned
        flagsChanged, // the gesture key or a modifier went down or up
        interrupted, // events may have been missed
    };
    Kind kind = Kind::keyDown;
    bool isGestureKey = false; // flagsChanged: it was the gesture key that moved
    bool isReturn = false; // keyDown: Return or the keypad's Enter
    bool gestureKeyDown = false; // the gesture key is down now
    bool shiftDown = false; // a Shift key is down now
    bool otherModifiers = false; // a Shift, Control, Alt or Super other than the gesture key is
                                 // down, or a button
};

// Watches the keyboard and the pointer's buttons, and swallows nothing. Main thread only.
class KeyMonitor {
public:
    virtual ~KeyMonitor() = default;

    // Whether keys can be watched on this desktop.
    virtual bool permitted() const = 0;
    // Whether the keyboard reports an Fn key.
    virtual bool reportsFn() const = 0;
    // Whether another program holds the keyboard at this moment, as a screen locker does or an open
    // menu: what is typed is meant for that alone.
    virtual bool takenByOther() const = 0;
    // Begins to watch, in place of an earlier watch. False if it can't.
    virtual bool start(GestureKey key, std::function<void(const KeyEvent&)> onEvent) = 0;
    virtual void stop() = 0;
};

// A key that can be part of a shortcut.
struct NamedKey {
    std::string place; // as in KeyCombination
    std::string name; // what it types without modifiers, as a capital letter; empty if nothing
};

// The global shortcut. Main thread only.
class GlobalShortcut {
public:
    virtual ~GlobalShortcut() = default;

    // In place of an earlier one. False if the combination can't be had: another program has it,
    // the keyboard lacks the key, or this desktop gives none. Then there is none. What could be had
    // no other program can take.
    virtual bool install(const KeyCombination& combination, std::function<void()> onPressed) = 0;
    virtual void remove() = 0;
    // The key with that number of the keyboard's, while no shortcut is installed. Nothing where
    // this desktop makes no shortcut with it.
    virtual std::optional<NamedKey> keyAt(std::uint32_t /*scanCode*/) const { return std::nullopt; }

    // The desktop took its time to say no: it is not to be had, although install() was true.
    std::function<void()> onRefused;
};

} // namespace vesko
