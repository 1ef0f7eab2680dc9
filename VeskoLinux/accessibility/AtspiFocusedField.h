#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoLinux/accessibility/ActiveWindow.h"
#include "VeskoLinux/accessibility/AtspiBus.h"
#include "VeskoLinux/accessibility/AtspiFrontmost.h"
#include "VeskoLinux/accessibility/FieldReader.h"
#include "VeskoLinux/accessibility/FocusFollower.h"
#include "VeskoLinux/accessibility/FocusSearch.h"

#include <vector>

namespace vesko {

// Follows the focus over the accessibility bus, so that a read knows its element before it asks
// anyone. A program that does not answer leaves its facts absent within a second and a half.
class AtspiFocusedField final : public FocusedField {
public:
    // Who tells which window is active.
    enum class Windows { x11, accessibility };
    explicit AtspiFocusedField(EventClock& clock, Windows windows = Windows::x11);

    Eventual<FieldReading> read(std::optional<std::int32_t> process) override;

private:
    struct Asked {
        std::int32_t process;
        bool again; // by name: what has the focus now, not what had it at a press
        QString title; // of the active window, where nothing was heard of the process
        std::vector<AtspiAddress> heard;
    };
    struct Seen {
        AtspiAddress element;
        FieldProbe probe;
    };

    Task<> lookAround();
    Task<> finish(Eventual<FieldReading> answer, FieldReading reading, Asked asked);
    Task<std::optional<Seen>> look(std::vector<AtspiAddress> heard, AtspiInquiry inquiry);
    static bool settled(const std::optional<Seen>& seen);

    std::optional<std::int32_t> frontmost() const;
    void seeFrontmost(FieldReading& reading) const;
    QString title() const;
    void followWindows();

    EventClock& m_clock;
    AtspiBus m_bus;
    FocusSearch m_search{ m_bus };
    FieldReader m_reader{ m_bus };
    FocusFollower m_follower;
    std::optional<ActiveWindow> m_window; // one of the two
    std::optional<AtspiFrontmost> m_frontmost;
    TaskScope m_tasks; // goes first: its tasks use all of the above
};

} // namespace vesko
