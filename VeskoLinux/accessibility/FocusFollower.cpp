#include "VeskoLinux/accessibility/FocusFollower.h"

#include "VeskoApp/async/Sleep.h"

#include <atspi/atspi-constants.h>

#include <algorithm>
#include <utility>

namespace vesko {
namespace {

constexpr int weighLimit = 1200; // milliseconds
constexpr std::size_t programLimit = 64; // that are followed
constexpr std::size_t newsLimit = 16; // of one program; what is older can't have the focus now
constexpr double settling = 0.06; // seconds; a held shortcut takes first the focus, then the window

} // namespace

FocusFollower::FocusFollower(AtspiBus& bus, FocusSearch& search, EventClock& clock)
    : m_bus(bus)
    , m_search(search)
    , m_clock(clock)
{
    bus.onFocus = [this](const AtspiAddress& element, bool gained) {
        gained ? noteFocus(element) : noteLoss(element);
    };
    bus.onGone = [this](const QString& service) {
        std::erase_if(m_programs, [&](const Program& one) { return one.service == service; });
    };
}

std::vector<AtspiAddress> FocusFollower::heard(std::int32_t process) const
{
    const auto program = std::ranges::find(m_programs, process, &Program::process);
    if (program == m_programs.end())
        return {};
    auto all = program->weighed;
    all.insert(all.end(), program->news.begin(), program->news.end());
    return all;
}

Task<std::optional<AtspiAddress>> FocusFollower::weigh(
    std::vector<AtspiAddress> heard, AtspiInquiry inquiry)
{
    const auto kinds = co_await m_search.kindsOf(heard, inquiry);
    const auto counts = strongestFocus(kinds);
    if (!counts) {
        // A program that hangs keeps what it told.
        const bool hangs = std::ranges::none_of(kinds, &std::optional<AtspiKind>::has_value);
        co_return hangs && !heard.empty() ? std::optional(heard.back()) : std::nullopt;
    }
    // Some name the box whose text has the keyboard.
    if (kinds[*counts]->role == ATSPI_ROLE_COMBO_BOX && !kinds[*counts]->focusedField()) {
        if (auto inside = co_await m_search.fieldIn(heard[*counts], inquiry))
            co_return inside;
    }
    co_return heard[*counts];
}

void FocusFollower::found(const AtspiAddress& element, std::int32_t process)
{
    Program& program = latest(element.service);
    program.process = process;
    if (!program.weighing)
        program.weighed = { element };
}

void FocusFollower::noteFocus(const AtspiAddress& element)
{
    Program& program = latest(element.service);
    if (program.news.size() == newsLimit)
        program.news.erase(program.news.begin());
    program.news.push_back(element);
    if (!std::exchange(program.weighing, true))
        m_tasks.spawn(weighNews(element.service));
}

// A field that lost the focus to something that doesn't tell is no longer the one. Most often the
// next news are on their way, or a held shortcut has it for a while.
void FocusFollower::noteLoss(const AtspiAddress& element)
{
    const Program* program = find(element.service);
    const auto among = [&](const std::vector<AtspiAddress>& elements) {
        return std::ranges::find(elements, element) != elements.end();
    };
    if (program && (among(program->weighed) || among(program->news)))
        m_tasks.spawn(weighLoss(element));
}

FocusFollower::Program* FocusFollower::find(const QString& service)
{
    const auto known = std::ranges::find(m_programs, service, &Program::service);
    return known == m_programs.end() ? nullptr : &*known;
}

bool FocusFollower::isWeighing(const QString& service)
{
    const Program* program = find(service);
    return program && program->weighing;
}

FocusFollower::Program& FocusFollower::latest(const QString& service)
{
    const auto known = std::ranges::find(m_programs, service, &Program::service);
    if (known != m_programs.end()) {
        std::rotate(m_programs.begin(), known, known + 1);
        return m_programs.front();
    }
    m_programs.insert(m_programs.begin(),
        Program{ .service = service, .process = {}, .weighed = {}, .news = {} });
    if (m_programs.size() > programLimit)
        m_programs.pop_back();
    m_tasks.spawn(learnProcess(service));
    return *find(service);
}

Task<> FocusFollower::weighNews(QString service)
{
    for (;;) {
        Program* program = find(service);
        if (!program)
            co_return;
        if (program->news.empty()) {
            program->weighing = false;
            co_return;
        }
        std::ranges::move(std::exchange(program->news, {}), std::back_inserter(program->weighed));
        const auto counts = co_await weigh(program->weighed, AtspiInquiry(weighLimit));
        if ((program = find(service)))
            program->weighed = counts ? std::vector{ *counts } : std::vector<AtspiAddress>{};
    }
}

Task<> FocusFollower::weighLoss(AtspiAddress element)
{
    do {
        co_await sleepFor(m_clock, settling);
    } while (isWeighing(element.service)); // and may count what had the focus when it was asked
    const AtspiInquiry inquiry(weighLimit);
    const auto kinds = co_await m_search.kindsOf({ element }, inquiry);
    if (!kinds.front() || kinds.front()->is(ATSPI_STATE_FOCUSED)
        || !co_await m_search.hasActiveWindow(element.service, inquiry))
        co_return;
    Program* program = find(element.service);
    if (program && !program->weighing && program->weighed == std::vector{ element })
        program->weighed.clear();
}

Task<> FocusFollower::learnProcess(QString service)
{
    const auto reply = co_await m_bus.processOf(service, AtspiInquiry(weighLimit));
    Program* program = find(service);
    if (reply && program && !program->process)
        program->process = std::int32_t(reply->first().toUInt());
}

} // namespace vesko
