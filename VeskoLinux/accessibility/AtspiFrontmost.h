#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoLinux/accessibility/AtspiBus.h"
#include "VeskoLinux/accessibility/FocusSearch.h"

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace vesko {

// Which program is in front, by what programs say of their own windows: where no window server
// tells, this is all there is. Main thread.
class AtspiFrontmost {
public:
    // Before the bus is opened. Both outlive this.
    AtspiFrontmost(AtspiBus& bus, FocusSearch& search);

    // The bus is open, or another one: looks for the windows that were active before anything was
    // heard.
    void begin();
    // The program got the focus, or left the bus.
    void noteFocus(const QString& service);
    void noteGone(const QString& service);

    // Unknown, unless one program and no other says that a window of its own is active.
    std::optional<std::int32_t> process() const;

private:
    struct Program {
        QString service;
        std::optional<std::int32_t> process; // absent until the bus has told
        std::vector<QString> windows; // the active ones
    };

    void noteWindow(const AtspiAddress& window, bool active);
    Program* find(const QString& service);
    void noteEvent(const AtspiAddress& window, bool active);
    Task<> look(std::optional<QString> service);
    Task<> learnProcess(QString service);
    void confirmOthers(const QString& service);
    Task<> confirm(AtspiAddress window);

    AtspiBus& m_bus;
    FocusSearch& m_search;
    std::vector<Program> m_active;
    // Has told of its windows itself: what it is asked meanwhile may be answered too late.
    std::set<QString> m_telling;
    TaskScope m_tasks;
};

} // namespace vesko
