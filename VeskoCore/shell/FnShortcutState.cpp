#include "VeskoCore/shell/FnShortcutState.h"

namespace vesko {

std::optional<FnShortcutAction> FnShortcutState::flagsChanged(
    bool isFnKey, bool isDown, bool otherModifiers, double at, bool recording, bool canStart)
{
    if (!isFnKey)
        return joined();
    return isDown ? pressed(otherModifiers, at, recording, canStart) : released(otherModifiers, at);
}

std::optional<FnShortcutAction> FnShortcutState::keyDown()
{
    return joined();
}

std::optional<FnShortcutAction> FnShortcutState::holdReached(double at)
{
    if (!m_pressed || m_chord || m_origin != Origin::newCapture || m_holdSent)
        return std::nullopt;
    if (at - m_pressedAt < holdDuration)
        return std::nullopt;
    m_holdSent = true;
    return FnShortcutAction::hold;
}

std::optional<FnShortcutAction> FnShortcutState::reset()
{
    const bool active = m_pressed && m_origin == Origin::newCapture;
    forget();
    if (active)
        return FnShortcutAction::discard;
    return std::nullopt;
}

std::optional<FnShortcutAction> FnShortcutState::pressed(
    bool otherModifiers, double at, bool recording, bool canStart)
{
    if (m_pressed)
        return std::nullopt;
    m_pressed = true;
    m_pressedAt = at;
    m_chord = otherModifiers;
    m_holdSent = false;
    m_origin = Origin::ignored;
    if (otherModifiers)
        return std::nullopt;
    if (recording) {
        m_origin = Origin::existingCapture;
        return FnShortcutAction::armStop;
    }
    if (!canStart)
        return std::nullopt;
    m_origin = Origin::newCapture;
    return FnShortcutAction::begin;
}

std::optional<FnShortcutAction> FnShortcutState::released(bool otherModifiers, double at)
{
    if (!m_pressed)
        return std::nullopt;
    const Origin origin = m_origin;
    const bool combined = m_chord || otherModifiers;
    forget();
    if (combined) {
        if (origin == Origin::newCapture)
            return FnShortcutAction::discard;
        return std::nullopt;
    }
    if (origin == Origin::existingCapture)
        return FnShortcutAction::finish;
    if (origin == Origin::newCapture && at - m_pressedAt >= holdDuration)
        return FnShortcutAction::finish;
    // A tap that began a capture leaves it running.
    return std::nullopt;
}

std::optional<FnShortcutAction> FnShortcutState::joined()
{
    if (!m_pressed)
        return std::nullopt;
    m_chord = true;
    if (m_origin != Origin::newCapture)
        return std::nullopt;
    m_origin = Origin::ignored;
    return FnShortcutAction::discard;
}

void FnShortcutState::forget()
{
    m_pressed = false;
    m_origin = Origin::ignored;
    m_chord = false;
    m_holdSent = false;
}

} // namespace vesko
