#pragma once

#include <cstdint>
#include <optional>

namespace vesko {

enum class FnShortcutAction { begin, armStop, finish, discard, hold };

// Decides what a press of the gesture key means: a tap toggles, a hold is push-to-talk, and a key
// or a button that joins in makes it a combination, which takes back what the press began. Fed with
// facts and a reading of the uptime clock in seconds; pure.
class FnShortcutState {
public:
    // The boundary between tap and hold, in seconds, and the delay after which to call holdReached.
    static constexpr double holdDuration = 0.35;

    // The gesture key or a modifier moved.
    std::optional<FnShortcutAction> flagsChanged(
        bool isFnKey, bool isDown, bool otherModifiers, double at, bool recording, bool canStart);
    // Any ordinary key or a button of the pointer went down.
    std::optional<FnShortcutAction> keyDown();
    std::optional<FnShortcutAction> holdReached(double at);
    // Forgets the press; discards what it began.
    std::optional<FnShortcutAction> reset();

private:
    enum class Origin : std::uint8_t { newCapture, existingCapture, ignored };

    std::optional<FnShortcutAction> pressed(
        bool otherModifiers, double at, bool recording, bool canStart);
    std::optional<FnShortcutAction> released(bool otherModifiers, double at);
    // Another key or modifier joined the press, if there is one.
    std::optional<FnShortcutAction> joined();
    void forget();

    bool m_pressed = false;
    Origin m_origin = Origin::ignored; // what this press means
    double m_pressedAt = 0;
    bool m_chord = false; // another key or modifier has joined this press
    bool m_holdSent = false;
};

} // namespace vesko
