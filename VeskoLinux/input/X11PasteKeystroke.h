#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoApp/platform/SessionState.h"
#include "VeskoLinux/input/KeyFocus.h"
#include "VeskoLinux/input/KeyboardProbe.h"
#include "VeskoLinux/input/SentKeys.h"
#include "VeskoLinux/input/X11Connection.h"
#include "VeskoLinux/input/X11GlobalShortcut.h"

#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Types Ctrl+V through XTest: Ctrl+Shift+V into a terminal, Shift+Insert where no layout of the
// keyboard has Latin letters.
class X11PasteKeystroke final : public PasteKeystroke {
public:
    // What is sent is noted in `sent`; `shortcut` is this program's own. All outlive this.
    X11PasteKeystroke(SentKeys& sent, const X11GlobalShortcut& shortcut,
        const SessionState& session, EventClock& clock);

    Eventual<std::monostate> keysReleased() override;
    std::optional<std::string> keyboardTaken() const override;
    Eventual<std::optional<std::string>> send(const FieldElement& element) override;

private:
    using Obstacle = std::optional<std::string>;

    std::vector<KeyCode> heldKeys() const;
    void look();
    bool releaseOwnKeys();
    std::vector<KeyCode> pasteKeys(const KeyMap& map, bool terminal) const;
    KeyCode letterKey(const KeyMap& map) const;
    Obstacle sendNow(const KeyMap& map, const std::vector<KeyCode>& keys);
    Obstacle stateObstacle(std::uint32_t locks) const;
    bool slowKeys() const;
    bool type(KeyCode key, bool down);

    SentKeys& m_sent;
    const X11GlobalShortcut& m_shortcut;
    const SessionState& m_session;
    EventClock& m_clock;
    X11Connection m_connection;
    KeyboardProbe m_keyboard;
    Timer m_look;
    KeyFocus m_focus; // when the user had let go
    double m_patienceEnds = 0; // uptime
    std::optional<double> m_heldAt; // uptime of the last look that found a key held
    bool m_ownReleased = false; // our shortcut's keys, while somebody waits
    std::optional<Eventual<std::monostate>> m_released; // while somebody waits
};

} // namespace vesko
