#include "VeskoLinux/accessibility/AtspiFocusedField.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QMap>

#include <atspi/atspi-constants.h>

#include <algorithm>

namespace vesko {
namespace {

constexpr int readLimit = 1200; // milliseconds for a whole read
constexpr std::size_t programLimit = 64; // whose last focus is kept

std::optional<std::int64_t> intProperty(const std::optional<QVariantList>& reply)
{
    if (!reply)
        return std::nullopt;
    const auto value = reply->first().value<QDBusVariant>().variant();
    if (value.typeId() != QMetaType::Int || value.toInt() < 0)
        return std::nullopt;
    return value.toInt();
}

// Browsers name the kind of input; the others have no search field apart from others.
bool isSearch(const QVariantList& attributes)
{
    const auto named = qdbus_cast<QMap<QString, QString>>(attributes.first());
    return named.value(QStringLiteral("text-input-type")) == QStringLiteral("search")
        || named.value(QStringLiteral("xml-roles")) == QStringLiteral("searchbox");
}

} // namespace

AtspiFocusedField::AtspiFocusedField(Windows windows)
{
    if (windows == Windows::x11)
        m_window.emplace();
    else
        m_frontmost.emplace(m_bus, m_search);
    m_bus.onFocus = [this](const AtspiAddress& element) {
        if (m_frontmost)
            m_frontmost->noteFocus(element.service);
        noteFocus(element);
    };
    m_bus.onGone = [this](const QString& service) {
        if (m_frontmost)
            m_frontmost->noteGone(service);
        std::erase_if(m_focus, [&](const Focus& one) { return one.element.service == service; });
    };
    m_tasks.spawn(start());
}

Task<> AtspiFocusedField::start()
{
    if (!co_await m_bus.open())
        co_return;
    // The bus tells of changes only; what had the focus before has to be looked for.
    if (m_frontmost)
        m_frontmost->begin();
    const auto process = frontmost();
    if (!process)
        co_return;
    const auto element = co_await m_search.find(*process, QDeadlineTimer(readLimit));
    if (element && !lastFocus(*process))
        noteFocus(*element, process);
}

std::optional<std::int32_t> AtspiFocusedField::frontmost() const
{
    return m_frontmost ? m_frontmost->process() : m_window->process();
}

Eventual<FieldReading> AtspiFocusedField::read(std::optional<std::int32_t> process)
{
    FieldReading reading;
    reading.trusted = m_bus.usable();
    reading.frontmost = frontmost();
    reading.seesFrontmost = !m_frontmost || reading.frontmost;
    if (!process)
        process = reading.frontmost;
    if (!reading.trusted || !process)
        return Eventual<FieldReading>::of(std::move(reading));
    Eventual<FieldReading> answer;
    const Focus* last = lastFocus(*process);
    m_tasks.spawn(finish(
        answer, std::move(reading), *process, last ? std::optional(last->element) : std::nullopt));
    return answer;
}

Task<> AtspiFocusedField::finish(Eventual<FieldReading> answer, FieldReading reading,
    std::int32_t process, std::optional<AtspiAddress> element)
{
    const QDeadlineTimer deadline(readLimit);
    std::optional<Probe> found;
    if (element) {
        found = co_await probe(*element, deadline);
        // While a shortcut is held down, no element has the focus and no window is active, as
        // seen from their program: then the last one counts. With an active window, a lost focus
        // is a lost focus.
        if (found && !found->kind.is(ATSPI_STATE_FOCUSED)
            && co_await m_search.hasActiveWindow(element->service, deadline))
            found.reset();
    }
    if (!found) {
        element = co_await m_search.find(process, deadline);
        if (element) {
            noteFocus(*element, process);
            found = co_await probe(*element, deadline);
        }
    }
    if (found)
        co_await describe(reading, *element, *found, deadline);
    answer.set(std::move(reading));
}

Task<std::optional<AtspiFocusedField::Probe>> AtspiFocusedField::probe(
    AtspiAddress element, QDeadlineTimer deadline)
{
    auto states = m_bus.call(element, atspi::accessible, "GetState", "au", deadline);
    auto role = m_bus.call(element, atspi::accessible, "GetRole", "u", deadline);
    auto attributes = m_bus.call(element, atspi::accessible, "GetAttributes", "a{ss}", deadline);
    auto length = m_bus.property(element, atspi::text, "CharacterCount", deadline);
    auto caret = m_bus.property(element, atspi::text, "CaretOffset", deadline);
    auto selections = m_bus.call(element, atspi::text, "GetNSelections", "i", deadline);
    auto selection = m_bus.call(element, atspi::text, "GetSelection", "ii", deadline, { 0 });

    const auto bits = co_await states;
    const auto number = co_await role;
    if (!bits || !number)
        co_return std::nullopt;
    Probe probe;
    probe.kind = atspi::kind(*bits, *number);
    if (probe.kind.is(ATSPI_STATE_DEFUNCT))
        co_return std::nullopt;
    if (const auto named = co_await attributes)
        probe.search = isSearch(*named);
    probe.length = intProperty(co_await length);
    probe.caret = intProperty(co_await caret);
    const auto count = co_await selections;
    const auto range = co_await selection;
    if (count && count->first().toInt() > 0 && range)
        probe.selection.emplace(range->at(0).toInt(), range->at(1).toInt());
    co_return probe;
}

Task<> AtspiFocusedField::describe(
    FieldReading& reading, AtspiAddress element, Probe probe, QDeadlineTimer deadline)
{
    reading.element = std::make_shared<AtspiElement>(element, probe.kind.terminal());
    reading.role = fieldRole(probe.kind, probe.search);
    const auto asked = std::min<std::int64_t>(probe.length.value_or(0), FieldText::limit);
    std::optional<QString> value;
    if (probe.kind.password())
        reading.subrole = "AXSecureTextField"; // and its text is never asked for
    else if (probe.length && asked == 0)
        value.emplace();
    else if (probe.length) {
        const auto text = co_await m_bus.call(
            element, atspi::text, "GetText", "s", deadline, { 0, int(asked) });
        if (text)
            value = text->first().toString();
    }
    if (!reading.role) {
        const auto name
            = co_await m_bus.call(element, atspi::accessible, "GetRoleName", "s", deadline);
        if (name)
            reading.role = name->first().toString().toStdString();
    }
    const FieldText text(value.value_or(QString()), value ? asked : 0);
    if (value)
        reading.value = text.value();
    if (probe.selection && probe.selection->first >= 0 && probe.selection->second >= 0)
        reading.selection = text.range(probe.selection->first, probe.selection->second);
    else if (probe.caret)
        reading.selection = text.range(*probe.caret, *probe.caret);
}

void AtspiFocusedField::noteFocus(const AtspiAddress& element, std::optional<std::int32_t> process)
{
    const auto known = std::ranges::find(
        m_focus, element.service, [](const Focus& one) { return one.element.service; });
    if (known != m_focus.end()) {
        if (!process)
            process = known->process;
        m_focus.erase(known);
    } else if (!process) {
        m_tasks.spawn(learnProcess(element.service));
    }
    m_focus.insert(m_focus.begin(), { element, process });
    if (m_focus.size() > programLimit)
        m_focus.pop_back();
}

const AtspiFocusedField::Focus* AtspiFocusedField::lastFocus(std::int32_t process) const
{
    const auto found = std::ranges::find(m_focus, process, &Focus::process);
    return found == m_focus.end() ? nullptr : &*found;
}

Task<> AtspiFocusedField::learnProcess(QString service)
{
    const auto reply = co_await m_bus.processOf(service, QDeadlineTimer(readLimit));
    if (!reply)
        co_return;
    for (Focus& one : m_focus) {
        if (one.element.service == service)
            one.process = std::int32_t(reply->first().toUInt());
    }
}

} // namespace vesko
