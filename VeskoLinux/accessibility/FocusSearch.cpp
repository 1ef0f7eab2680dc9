#include "VeskoLinux/accessibility/FocusSearch.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <atspi/atspi-constants.h>

#include <algorithm>

namespace vesko {
namespace {

constexpr std::size_t childLimit = 256; // of one element
constexpr std::size_t levelLimit = 1024; // elements at one depth
constexpr int depthLimit = 64;

void append(std::vector<AtspiAddress>& addresses, const QVariantList& reply)
{
    const auto list = reply.first().value<QDBusArgument>();
    list.beginArray();
    for (std::size_t count = 0; !list.atEnd() && count < childLimit; ++count)
        addresses.push_back(atspi::address(list));
    list.endArray();
}

// Nobody dictates into the others, and they are most of a window's elements.
bool worthEntering(const AtspiKind& kind)
{
    switch (kind.role) {
    case ATSPI_ROLE_MENU_BAR:
    case ATSPI_ROLE_MENU:
    case ATSPI_ROLE_TOOL_BAR:
    case ATSPI_ROLE_STATUS_BAR:
    case ATSPI_ROLE_SCROLL_BAR:
        return false;
    default:
        // Some toolkits say of windows alone that they are showing.
        return (kind.is(ATSPI_STATE_SHOWING) || kind.is(ATSPI_STATE_VISIBLE))
            && (!kind.is(ATSPI_STATE_MANAGES_DESCENDANTS) || kind.is(ATSPI_STATE_EDITABLE));
    }
}

bool active(const AtspiKind& kind)
{
    return kind.is(ATSPI_STATE_ACTIVE);
}

} // namespace

Task<FocusSearch::Found> FocusSearch::find(
    std::int32_t process, QString title, AtspiInquiry inquiry)
{
    Found all;
    for (const AtspiAddress& program : co_await programsOf(process, std::move(title), inquiry)) {
        Level windows = co_await childrenOf({ program }, inquiry);
        if (std::ranges::any_of(windows, active, &Node::kind))
            std::erase_if(windows, [](const Node& window) { return !active(window.kind); });
        const Found found = co_await findBelow(std::move(windows), inquiry);
        all.elements = all.elements || found.elements;
        all.element = found.element;
        if (all.element)
            break;
    }
    co_return all;
}

Task<std::optional<AtspiAddress>> FocusSearch::fieldIn(AtspiAddress element, AtspiInquiry inquiry)
{
    for (const Node& child : co_await childrenOf({ std::move(element) }, inquiry)) {
        if (child.kind.focusedField())
            co_return child.address;
    }
    co_return std::nullopt;
}

Task<bool> FocusSearch::hasActiveWindow(QString service, AtspiInquiry inquiry)
{
    const auto windows = co_await childrenOf({ { service, atspi::rootPath } }, inquiry);
    co_return std::ranges::any_of(windows, active, &Node::kind);
}

Task<std::vector<AtspiAddress>> FocusSearch::activeWindows(
    std::optional<QString> service, AtspiInquiry inquiry)
{
    std::vector<AtspiAddress> programs;
    if (service)
        programs.push_back({ *service, atspi::rootPath });
    else
        programs = co_await allPrograms(inquiry);
    std::vector<AtspiAddress> found;
    for (const Node& window : co_await childrenOf(std::move(programs), inquiry)) {
        if (active(window.kind))
            found.push_back(window.address);
    }
    co_return found;
}

// One depth after the other, each as one volley of questions.
Task<FocusSearch::Found> FocusSearch::findBelow(Level level, AtspiInquiry inquiry)
{
    Found found; // until a field is: what has the focus, but is none
    for (int depth = 0; depth < depthLimit && !level.empty() && !inquiry.hasExpired(); ++depth) {
        std::vector<AtspiAddress> parents;
        found.elements = found.elements || depth > 1;
        for (const Node& node : level) {
            if (node.kind.focusedField())
                co_return Found{ node.address, true };
            if (depth > 0 && node.kind.is(ATSPI_STATE_FOCUSED))
                found.element = node.address;
            if (depth == 0 || worthEntering(node.kind))
                parents.push_back(node.address);
        }
        level = co_await childrenOf(std::move(parents), inquiry);
    }
    if (!level.empty() && inquiry.hasExpired())
        inquiry.noteUnanswered();
    co_return found;
}

Task<std::vector<AtspiAddress>> FocusSearch::allPrograms(AtspiInquiry inquiry)
{
    const auto reply
        = co_await m_bus.call({ QStringLiteral("org.a11y.atspi.Registry"), atspi::rootPath },
            atspi::accessible, "GetChildren", "a(so)", inquiry);
    std::vector<AtspiAddress> programs;
    if (reply)
        append(programs, *reply);
    co_return programs;
}

Task<std::vector<AtspiAddress>> FocusSearch::programsOf(
    std::int32_t process, QString title, AtspiInquiry inquiry)
{
    const auto programs = co_await allPrograms(inquiry);
    std::vector<AtspiCall> asking;
    asking.reserve(programs.size());
    for (const AtspiAddress& program : programs)
        asking.push_back(m_bus.processOf(program.service, inquiry));
    std::vector<AtspiAddress> found;
    for (std::size_t index = 0; index < programs.size(); ++index) {
        const auto answer = co_await asking[index];
        if (answer && answer->first().toUInt() == std::uint32_t(process))
            found.push_back(programs[index]);
    }
    if (!found.empty() || title.isEmpty())
        co_return found;
    for (const AtspiAddress& program : programs) {
        if (co_await hasActiveWindowCalled(program, title, inquiry))
            found.push_back(program);
    }
    if (found.size() > 1)
        found.clear(); // either could be meant
    co_return found;
}

Task<bool> FocusSearch::hasActiveWindowCalled(
    AtspiAddress program, QString title, AtspiInquiry inquiry)
{
    for (const Node& window : co_await childrenOf({ std::move(program) }, inquiry)) {
        if (!active(window.kind))
            continue;
        const auto name
            = co_await m_bus.property(window.address, atspi::accessible, "Name", inquiry);
        if (name && name->first().value<QDBusVariant>().variant().toString() == title)
            co_return true;
    }
    co_return false;
}

Task<std::vector<AtspiAddress>> FocusSearch::addressesIn(
    std::vector<AtspiAddress> parents, AtspiInquiry inquiry)
{
    std::vector<AtspiCall> listing;
    listing.reserve(parents.size());
    for (const AtspiAddress& parent : parents)
        listing.push_back(m_bus.call(parent, atspi::accessible, "GetChildren", "a(so)", inquiry));
    std::vector<AtspiAddress> children;
    for (AtspiCall& call : listing) {
        const auto reply = co_await call;
        if (reply && children.size() < levelLimit)
            append(children, *reply);
    }
    co_return children;
}

Task<FocusSearch::Level> FocusSearch::childrenOf(
    std::vector<AtspiAddress> parents, AtspiInquiry inquiry)
{
    const auto children = co_await addressesIn(std::move(parents), inquiry);
    const auto kinds = co_await kindsOf(children, inquiry);
    Level level;
    for (std::size_t index = 0; index < children.size(); ++index) {
        if (kinds[index])
            level.push_back({ children[index], *kinds[index] });
    }
    co_return level;
}

Task<std::vector<std::optional<AtspiKind>>> FocusSearch::kindsOf(
    std::vector<AtspiAddress> elements, AtspiInquiry inquiry)
{
    std::vector<AtspiCall> states, roles;
    states.reserve(elements.size());
    roles.reserve(elements.size());
    for (const AtspiAddress& element : elements) {
        states.push_back(m_bus.call(element, atspi::accessible, "GetState", "au", inquiry));
        roles.push_back(m_bus.call(element, atspi::accessible, "GetRole", "u", inquiry));
    }
    std::vector<std::optional<AtspiKind>> kinds;
    for (std::size_t index = 0; index < elements.size(); ++index) {
        const auto state = co_await states[index];
        const auto role = co_await roles[index];
        kinds.push_back(state && role ? std::optional(atspi::kind(*state, *role)) : std::nullopt);
    }
    co_return kinds;
}

} // namespace vesko
