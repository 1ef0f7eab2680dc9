#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoLinux/accessibility/AtspiBus.h"
#include "VeskoLinux/accessibility/FocusSearch.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vesko {

// Follows which element of each program has the keyboard, by what the programs tell when it moves.
// They tell more than that: the frame around the document, the row of a list that follows the
// text. So each piece of news is weighed as soon as it comes, by asking. Main thread only.
class FocusFollower {
public:
    FocusFollower(AtspiBus& bus, FocusSearch& search, EventClock& clock);

    // What counted when the program last told, and behind it the news that are not weighed yet,
    // in their order.
    std::vector<AtspiAddress> heard(std::int32_t process) const;
    // Which of these counts: the latest field that has the focus, else the latest that has it,
    // else the latest that can have it.
    Task<std::optional<AtspiAddress>> weigh(std::vector<AtspiAddress> heard, AtspiInquiry inquiry);
    // The element was found by looking.
    void found(const AtspiAddress& element, std::int32_t process);
    // Whoever was heard may be gone.
    void forget() { m_programs.clear(); }

private:
    struct Program {
        QString service;
        std::optional<std::int32_t> process; // absent until the bus has told
        std::vector<AtspiAddress> weighed; // one at most, or that and what is under way
        std::vector<AtspiAddress> news;
        bool weighing = false;
    };

    void noteFocus(const AtspiAddress& element);
    void noteLoss(const AtspiAddress& element);
    Program* find(const QString& service);
    bool isWeighing(const QString& service);
    Program& latest(const QString& service);
    Task<> weighNews(QString service);
    Task<> weighLoss(AtspiAddress element);
    Task<> learnProcess(QString service);

    AtspiBus& m_bus;
    FocusSearch& m_search;
    EventClock& m_clock;
    std::vector<Program> m_programs; // the latest first
    TaskScope m_tasks; // goes first: its tasks use all of the above
};

} // namespace vesko
