#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoLinux/accessibility/ActiveWindow.h"
#include "VeskoLinux/accessibility/AtspiBus.h"
#include "VeskoLinux/accessibility/AtspiFrontmost.h"
#include "VeskoLinux/accessibility/FieldFacts.h"
#include "VeskoLinux/accessibility/FocusSearch.h"

#include <QDeadlineTimer>

#include <vector>

namespace vesko {

// Follows the focus over the accessibility bus, so that a read knows its element before it asks
// anyone. A program that does not answer leaves its facts absent within a second and a half.
class AtspiFocusedField final : public FocusedField {
public:
    // Who tells which window is active.
    enum class Windows { x11, accessibility };
    explicit AtspiFocusedField(Windows windows = Windows::x11);

    Eventual<FieldReading> read(std::optional<std::int32_t> process) override;

private:
    // The element of a program that had the focus last.
    struct Focus {
        AtspiAddress element;
        std::optional<std::int32_t> process; // absent until the bus has told
    };
    // What can be asked without knowing anything of the element.
    struct Probe {
        AtspiKind kind;
        bool search = false;
        std::optional<std::int64_t> length, caret;
        std::optional<std::pair<int, int>> selection;
    };

    void noteFocus(const AtspiAddress& element, std::optional<std::int32_t> process = {});
    const Focus* lastFocus(std::int32_t process) const;

    std::optional<std::int32_t> frontmost() const;
    Task<> start();
    Task<> learnProcess(QString service);
    Task<> finish(Eventual<FieldReading> answer, FieldReading reading, std::int32_t process,
        std::optional<AtspiAddress> element);
    Task<std::optional<Probe>> probe(AtspiAddress element, QDeadlineTimer deadline);
    Task<> describe(
        FieldReading& reading, AtspiAddress element, Probe probe, QDeadlineTimer deadline);
    AtspiBus m_bus;
    FocusSearch m_search{ m_bus };
    std::optional<ActiveWindow> m_window; // one of the two
    std::optional<AtspiFrontmost> m_frontmost;
    std::vector<Focus> m_focus; // one a program, the latest first
    TaskScope m_tasks; // goes first: its tasks use all of the above
};

} // namespace vesko
