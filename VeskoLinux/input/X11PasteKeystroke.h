#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoLinux/input/SentKeys.h"
#include "VeskoLinux/input/X11Connection.h"

#include <optional>
#include <vector>

namespace vesko {

// Types Ctrl+V through XTest: Ctrl+Shift+V into a terminal, Shift+Insert where no layout of the
// keyboard has Latin letters.
class X11PasteKeystroke final : public PasteKeystroke {
public:
    // What is sent is noted in `sent`. Both outlive this.
    X11PasteKeystroke(SentKeys& sent, EventClock& clock);

    Eventual<std::monostate> keysReleased() override;
    Eventual<bool> send(const FieldElement& element) override;

private:
    std::vector<KeyCode> heldKeys() const;
    void look();
    std::vector<KeyCode> shortcut(bool terminal) const;
    KeyCode letterKey(const KeyMap& map) const;
    bool type(KeyCode key, bool down);

    SentKeys& m_sent;
    EventClock& m_clock;
    X11Connection m_connection;
    Timer m_look;
    double m_patienceEnds = 0; // uptime
    std::optional<Eventual<std::monostate>> m_released; // while somebody waits
};

} // namespace vesko
