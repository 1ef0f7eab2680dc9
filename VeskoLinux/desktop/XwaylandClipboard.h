#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/Eventual.h"
#include "VeskoLinux/desktop/QtClipboard.h"

namespace vesko {

// The clipboard of X11 in a session whose compositor hands it on to the programs of Wayland. It
// takes a moment to do that, which no other road to the compositor waits for. Main thread.
class XwaylandClipboard final : public QtClipboard {
public:
    // The clock outlives this.
    explicit XwaylandClipboard(EventClock& clock)
        : m_patience(clock)
    {
    }

    bool setText(const std::string& text) override;
    // Whether somebody has asked what there is to be had of the last text, as a compositor does
    // that hands it on; false if nobody has within a second.
    Eventual<bool> taken() const { return m_taken; }

private:
    Eventual<bool> m_taken = Eventual<bool>::of(false);
    Timer m_patience;
};

} // namespace vesko
