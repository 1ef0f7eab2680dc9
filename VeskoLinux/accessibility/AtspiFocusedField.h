#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoLinux/accessibility/ActiveWindow.h"
#include "VeskoLinux/accessibility/AtspiBus.h"
#include "VeskoLinux/accessibility/FieldReader.h"
#include "VeskoLinux/accessibility/FocusFollower.h"
#include "VeskoLinux/accessibility/FocusSearch.h"

#include <QDeadlineTimer>

#include <vector>

namespace vesko {

// Follows the focus over the accessibility bus, so that a read knows its element before it asks
// anyone. A program that does not answer leaves its facts absent within a second and a half.
class AtspiFocusedField final : public FocusedField {
public:
    explicit AtspiFocusedField(EventClock& clock);

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
    Task<std::optional<Seen>> look(std::vector<AtspiAddress> heard, QDeadlineTimer deadline);
    static bool settled(const std::optional<Seen>& seen);

    EventClock& m_clock;
    ActiveWindow m_window;
    AtspiBus m_bus;
    FocusSearch m_search{ m_bus };
    FieldReader m_reader{ m_bus };
    FocusFollower m_follower;
    TaskScope m_tasks; // goes first: its tasks use all of the above
};

} // namespace vesko
