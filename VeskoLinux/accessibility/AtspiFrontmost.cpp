#include "VeskoLinux/accessibility/AtspiFrontmost.h"

#include <atspi/atspi-constants.h>

#include <algorithm>

namespace vesko {
namespace {

constexpr int lookLimit = 1200; // milliseconds
constexpr std::size_t windowLimit = 64; // active ones of one program
constexpr std::size_t activeLimit = 64; // programs; more than one is of no use to anyone

} // namespace

AtspiFrontmost::AtspiFrontmost(AtspiBus& bus, FocusSearch& search)
    : m_bus(bus)
    , m_search(search)
{
    m_bus.onWindow = [this](const AtspiAddress& window, bool active) { noteEvent(window, active); };
}

void AtspiFrontmost::begin()
{
    m_active.clear();
    m_telling.clear();
    m_tasks.spawn(look({}));
}

// A program whose first window came up before it had heard who listens has told of no activation.
void AtspiFrontmost::noteFocus(const QString& service)
{
    if (!m_telling.contains(service) && !find(service))
        m_tasks.spawn(look(service));
}

void AtspiFrontmost::noteGone(const QString& service)
{
    m_telling.erase(service);
    std::erase_if(m_active, [&](const Program& one) { return one.service == service; });
}

std::optional<std::int32_t> AtspiFrontmost::process() const
{
    return m_active.size() == 1 ? m_active.front().process : std::nullopt;
}

void AtspiFrontmost::noteEvent(const AtspiAddress& window, bool active)
{
    m_telling.insert(window.service);
    noteWindow(window, active);
}

void AtspiFrontmost::noteWindow(const AtspiAddress& window, bool active)
{
    Program* program = find(window.service);
    if (active) {
        if (!program) {
            if (m_active.size() == activeLimit)
                return;
            m_active.push_back({ window.service, {}, {} });
            m_tasks.spawn(learnProcess(window.service));
            program = find(window.service);
        }
        if (program->windows.size() < windowLimit
            && std::ranges::find(program->windows, window.path) == program->windows.end())
            program->windows.push_back(window.path);
        confirmOthers(window.service);
    } else if (program) {
        std::erase(program->windows, window.path);
        if (program->windows.empty())
            std::erase_if(
                m_active, [&](const Program& one) { return one.service == window.service; });
    }
}

AtspiFrontmost::Program* AtspiFrontmost::find(const QString& service)
{
    const auto found = std::ranges::find(m_active, service, &Program::service);
    return found == m_active.end() ? nullptr : &*found;
}

Task<> AtspiFrontmost::look(std::optional<QString> service)
{
    const AtspiInquiry inquiry(lookLimit);
    for (const AtspiAddress& window : co_await m_search.activeWindows(service, inquiry)) {
        if (!m_telling.contains(window.service))
            noteWindow(window, true);
    }
}

// A toolkit that destroys its active window may tell nobody that it is active no longer.
void AtspiFrontmost::confirmOthers(const QString& service)
{
    for (const Program& other : m_active) {
        if (other.service == service)
            continue;
        for (const QString& window : other.windows)
            m_tasks.spawn(confirm({ other.service, window }));
    }
}

Task<> AtspiFrontmost::confirm(AtspiAddress window)
{
    const AtspiInquiry inquiry(lookLimit);
    auto state = m_bus.call(window, atspi::accessible, "GetState", "au", inquiry);
    auto role = m_bus.call(window, atspi::accessible, "GetRole", "u", inquiry);
    // Answered after those: then a window that gave no answer is gone. A program that gives none at
    // all may be in front.
    auto sign = m_bus.call(
        { window.service, atspi::rootPath }, atspi::accessible, "GetRole", "u", inquiry);
    const auto stateNow = co_await state;
    const auto roleNow = co_await role;
    if (co_await sign
        && !(stateNow && roleNow && atspi::kind(*stateNow, *roleNow).is(ATSPI_STATE_ACTIVE)))
        noteWindow(window, false);
}

Task<> AtspiFrontmost::learnProcess(QString service)
{
    const auto reply = co_await m_bus.processOf(service, AtspiInquiry(lookLimit));
    if (Program* const program = find(service); program && reply)
        program->process = static_cast<std::int32_t>(reply->first().toUInt());
}

} // namespace vesko
