#include "VeskoLinux/accessibility/AtspiFocusedField.h"

#include "VeskoApp/async/Sleep.h"

#include <array>
#include <utility>

namespace vesko {
namespace {

constexpr int readLimit = 1200; // milliseconds for a whole read

// Seconds until the next look while nothing that has the focus is a field, a quarter of one in
// all: the end of a held shortcut, or a window that is raised, gives it back in steps.
constexpr std::array looks{ 0.005, 0.01, 0.02, 0.04, 0.075, 0.1 };

} // namespace

AtspiFocusedField::AtspiFocusedField(EventClock& clock, Windows windows)
    : m_clock(clock)
    , m_bus(clock)
    , m_follower(m_bus, m_search, clock)
{
    if (windows == Windows::x11)
        m_window.emplace();
    else
        followWindows();
    m_bus.onOpen = [this] {
        m_follower.forget();
        if (m_frontmost)
            m_frontmost->begin();
        m_tasks.spawn(lookAround());
    };
    m_bus.start();
}

// Beside the follower, which hears the same.
void AtspiFocusedField::followWindows()
{
    m_frontmost.emplace(m_bus, m_search);
    m_bus.onFocus = [this, follow = m_bus.onFocus](const AtspiAddress& element, bool gained) {
        if (gained)
            m_frontmost->noteFocus(element.service);
        follow(element, gained);
    };
    m_bus.onGone = [this, forget = m_bus.onGone](const QString& service) {
        m_frontmost->noteGone(service);
        forget(service);
    };
}

// The bus tells of changes only; what had the focus before has to be looked for.
Task<> AtspiFocusedField::lookAround()
{
    const auto process = frontmost();
    if (!process)
        co_return;
    const auto found = co_await m_search.find(*process, title(), AtspiInquiry(readLimit));
    if (found.element && m_follower.heard(*process).empty())
        m_follower.found(*found.element, *process);
}

std::optional<std::int32_t> AtspiFocusedField::frontmost() const
{
    return m_frontmost ? m_frontmost->process() : m_window->process();
}

void AtspiFocusedField::seeFrontmost(FieldReading& reading) const
{
    reading.frontmost = frontmost();
    reading.seesFrontmost = !m_frontmost || reading.frontmost;
}

// Of the active window; empty where nobody tells.
QString AtspiFocusedField::title() const
{
    return m_window ? QString::fromStdString(m_window->title()) : QString();
}

Eventual<FieldReading> AtspiFocusedField::read(std::optional<std::int32_t> process)
{
    FieldReading reading;
    reading.trusted = m_bus.usable();
    seeFrontmost(reading);
    const bool again = process && process == reading.frontmost;
    if (!process)
        process = reading.frontmost;
    if (!reading.trusted || !process)
        return Eventual<FieldReading>::of(std::move(reading));
    Asked asked{
        .process = *process, .again = again, .title = {}, .heard = m_follower.heard(*process)
    };
    if (asked.heard.empty() && process == reading.frontmost)
        asked.title = title();
    const Eventual<FieldReading> answer;
    m_tasks.spawn(finish(answer, std::move(reading), std::move(asked)));
    return answer;
}

Task<> AtspiFocusedField::finish(Eventual<FieldReading> answer, FieldReading reading, Asked asked)
{
    AtspiInquiry inquiry(readLimit); // of the newest look
    auto seen = co_await look(std::move(asked.heard), inquiry);
    bool elements = seen.has_value();
    for (std::size_t count = 0; reading.frontmost == asked.process && !settled(seen); ++count) {
        const bool last = count == looks.size() || inquiry.hasExpired();
        if (!seen || !seen->probe.kind.focusedField()) {
            const bool silent = !seen || !seen->probe.focused();
            const bool active
                = !seen || co_await m_search.hasActiveWindow(seen->element.service, inquiry);
            // While a shortcut is held down, no element has the focus and no window is active, as
            // seen from their program: then the last one counts. With an active window, a lost
            // focus is a lost focus.
            if (silent && !active && !asked.again)
                break;
            if (active && (count == 0 || last)) {
                const auto found = co_await m_search.find(asked.process, asked.title, inquiry);
                elements = elements || found.elements;
                auto there = co_await look(
                    found.element ? std::vector{ *found.element } : std::vector<AtspiAddress>{},
                    inquiry);
                // A row of a list may have the focus beside the text that has it, too.
                const bool isField = there && there->probe.kind.focusedField();
                if (found.element && (silent || isField))
                    m_follower.found(*found.element, asked.process);
                if (isField || (silent && (found.element || last)))
                    seen = std::move(there);
                if (settled(seen))
                    break;
            }
        }
        if (last)
            break;
        co_await sleepFor(m_clock, looks[count]);
        inquiry = inquiry.next();
        if (auto next = co_await look(m_follower.heard(asked.process), inquiry))
            seen = std::move(next);
        if (asked.again)
            seeFrontmost(reading);
    }
    elements = elements || seen;
    // What gave no answer may be the field that has the focus.
    const bool lastOne = seen && !seen->probe.focused() && !asked.again;
    const bool unknown
        = inquiry.unanswered() && !lastOne && !(seen && seen->probe.kind.focusedField());
    if (unknown || (seen && seen->probe.kind.frameOnly() && !seen->probe.complete())) {
        seen.reset();
        elements = false;
    }
    reading.elements = elements;
    if (seen)
        co_await m_reader.describe(reading, seen->element, seen->probe, asked.process, inquiry);
    answer.set(std::move(reading));
}

Task<std::optional<AtspiFocusedField::Seen>> AtspiFocusedField::look(
    std::vector<AtspiAddress> heard, AtspiInquiry inquiry)
{
    std::optional<AtspiAddress> element;
    if (heard.size() == 1)
        element = heard.front();
    else if (!heard.empty())
        element = co_await m_follower.weigh(std::move(heard), inquiry);
    if (!element)
        co_return std::nullopt;
    auto probe = co_await m_reader.probe(*element, inquiry);
    if (!probe)
        co_return std::nullopt;
    co_return Seen{ *std::move(element), *std::move(probe) };
}

// Whether there is nothing that another look could tell.
bool AtspiFocusedField::settled(const std::optional<Seen>& seen)
{
    return seen && seen->probe.kind.focusedField() && seen->probe.complete();
}

} // namespace vesko
