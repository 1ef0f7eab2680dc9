#pragma once

#include "VeskoCore/base/Clock.h"
#include "VeskoLinux/input/KeyMap.h"

#include <deque>

namespace vesko {

// The keys that this program has sent and that have not come back as events yet: whoever watches
// the keyboard takes them for no one's. Main thread.
class SentKeys {
public:
    explicit SentKeys(const Clock& clock)
        : m_clock(clock)
    {
    }

    void add(KeyCode key, bool down);
    // Whether this event is one of ours; it then counts no more.
    bool take(KeyCode key, bool down);

private:
    struct Sent {
        KeyCode key;
        bool down;
        double at; // uptime
    };
    const Clock& m_clock;
    std::deque<Sent> m_sent; // the oldest first
};

} // namespace vesko
