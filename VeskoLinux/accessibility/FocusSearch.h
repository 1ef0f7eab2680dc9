#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoLinux/accessibility/AtspiBus.h"

#include <QDeadlineTimer>

#include <cstdint>
#include <optional>
#include <vector>

namespace vesko {

// Looks through a program's windows for what has the focus, where no event has told. Main thread;
// every answer comes by its deadline, as good as it is then.
class FocusSearch {
public:
    explicit FocusSearch(AtspiBus& bus)
        : m_bus(bus)
    {
    }

    Task<std::optional<AtspiAddress>> find(std::int32_t process, QDeadlineTimer deadline);
    // Whether one of the program's windows is active, as the program sees it.
    Task<bool> hasActiveWindow(QString service, QDeadlineTimer deadline);
    // The active windows of that program, or of all programs.
    Task<std::vector<AtspiAddress>> activeWindows(
        std::optional<QString> service, QDeadlineTimer deadline);

private:
    struct Node {
        AtspiAddress address;
        AtspiKind kind;
    };
    using Level = std::vector<Node>;

    Task<std::optional<AtspiAddress>> findBelow(Level windows, QDeadlineTimer deadline);
    Task<std::vector<AtspiAddress>> allPrograms(QDeadlineTimer deadline);
    Task<std::vector<AtspiAddress>> programsOf(std::int32_t process, QDeadlineTimer deadline);
    Task<Level> childrenOf(std::vector<AtspiAddress> parents, QDeadlineTimer deadline);

    AtspiBus& m_bus;
};

} // namespace vesko
