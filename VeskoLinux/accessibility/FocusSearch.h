#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoLinux/accessibility/AtspiBus.h"

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

    struct Found {
        std::optional<AtspiAddress> element; // what has the focus
        bool elements = false; // whether the program tells of anything in its windows
    };

    // In the programs of that process; where the accessibility bus knows none of them (a sandbox
    // may stand between), in the only one whose active window bears this title.
    Task<Found> find(std::int32_t process, QString title, AtspiInquiry inquiry);
    // The field below the element that has the focus.
    Task<std::optional<AtspiAddress>> fieldIn(AtspiAddress element, AtspiInquiry inquiry);
    // Their children, each parent's bounded in number.
    Task<std::vector<AtspiAddress>> addressesIn(
        std::vector<AtspiAddress> parents, AtspiInquiry inquiry);
    // In the same order; absent of what doesn't answer.
    Task<std::vector<std::optional<AtspiKind>>> kindsOf(
        std::vector<AtspiAddress> elements, AtspiInquiry inquiry);
    // Whether one of the program's windows is active, as the program sees it.
    Task<bool> hasActiveWindow(QString service, AtspiInquiry inquiry);
    // The active windows of that program, or of all programs.
    Task<std::vector<AtspiAddress>> activeWindows(
        std::optional<QString> service, AtspiInquiry inquiry);

private:
    struct Node {
        AtspiAddress address;
        AtspiKind kind;
    };
    using Level = std::vector<Node>;

    Task<std::vector<AtspiAddress>> allPrograms(AtspiInquiry inquiry);
    Task<Found> findBelow(Level windows, AtspiInquiry inquiry);
    Task<std::vector<AtspiAddress>> programsOf(
        std::int32_t process, QString title, AtspiInquiry inquiry);
    Task<bool> hasActiveWindowCalled(AtspiAddress program, QString title, AtspiInquiry inquiry);
    Task<Level> childrenOf(std::vector<AtspiAddress> parents, AtspiInquiry inquiry);

    AtspiBus& m_bus;
};

} // namespace vesko
