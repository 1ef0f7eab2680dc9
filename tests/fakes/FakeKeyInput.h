#pragma once

#include "VeskoApp/platform/KeyInput.h"

#include <map>
#include <optional>

namespace vesko {

class FakeGlobalShortcut final : public GlobalShortcut {
public:
    bool taken = false; // by another program
    std::string takenKey; // what another program has all combinations of
    std::map<std::uint32_t, NamedKey> keys; // by their number
    KeyCombination combination; // that was asked for last

    bool installed() const { return m_onPressed != nullptr; }
    void press() { m_onPressed(); }

    bool install(const KeyCombination& wanted, std::function<void()> onPressed) override
    {
        combination = wanted;
        const bool refused = taken || wanted.key == takenKey;
        m_onPressed = refused ? nullptr : std::move(onPressed);
        return !refused;
    }
    void remove() override { m_onPressed = nullptr; }
    std::optional<NamedKey> keyAt(std::uint32_t scanCode) const override
    {
        const auto key = keys.find(scanCode);
        return key == keys.end() ? std::nullopt : std::optional(key->second);
    }

private:
    std::function<void()> m_onPressed;
};

// A keyboard under the test's fingers. Keys that nobody watches go unseen.
class FakeKeyMonitor final : public KeyMonitor {
public:
    bool isPermitted = true;
    bool hasFn = true;
    bool taken = false; // another program holds the keyboard
    std::optional<GestureKey> watched; // the gesture key that is being watched

    void pressGestureKey(bool otherModifiers = false)
    {
        m_down = true;
        flags(true, otherModifiers);
    }
    void releaseGestureKey(bool otherModifiers = false)
    {
        m_down = false;
        flags(true, otherModifiers);
    }
    void pressModifier() { flags(false, true); }
    void releaseModifier() { flags(false, false); }
    void pressKey() { send({ .kind = KeyEvent::Kind::keyDown, .gestureKeyDown = m_down }); }
    void pressButton()
    {
        send({ .kind = KeyEvent::Kind::buttonDown,
            .gestureKeyDown = m_down,
            .otherModifiers = true });
    }
    void pressReturn(bool shift = false)
    {
        send({ .kind = KeyEvent::Kind::keyDown,
            .isReturn = true,
            .gestureKeyDown = m_down,
            .shiftDown = shift,
            .otherModifiers = shift });
    }
    void interrupt() { send({ .kind = KeyEvent::Kind::interrupted }); }

    bool permitted() const override { return isPermitted; }
    bool reportsFn() const override { return hasFn; }
    bool takenByOther() const override { return taken; }
    bool start(GestureKey key, std::function<void(const KeyEvent&)> onEvent) override
    {
        watched = key;
        m_onEvent = std::move(onEvent);
        return true;
    }
    void stop() override
    {
        watched.reset();
        m_onEvent = nullptr;
    }

private:
    void flags(bool isGestureKey, bool otherModifiers)
    {
        send({ .kind = KeyEvent::Kind::flagsChanged,
            .isGestureKey = isGestureKey,
            .gestureKeyDown = m_down,
            .otherModifiers = otherModifiers });
    }
    void send(const KeyEvent& event)
    {
        if (m_onEvent)
            m_onEvent(event);
    }

    bool m_down = false;
    std::function<void(const KeyEvent&)> m_onEvent;
};

} // namespace vesko
