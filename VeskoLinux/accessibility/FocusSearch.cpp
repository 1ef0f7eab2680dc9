#include "VeskoLinux/accessibility/FocusSearch.h"

#include <QDBusArgument>

#include <atspi/atspi-constants.h>

#include <algorithm>

namespace vesko {
namespace {

constexpr std::size_t childLimit = 256; // of one element
constexpr std::size_t levelLimit = 1024; // elements at one depth
constexpr int depthLimit = 64;

const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");

void append(std::vector<AtspiAddress>& addresses, const QVariantList& reply)
{
    const auto list = reply.first().value<QDBusArgument>();
    list.beginArray();
    for (std::size_t count = 0; !list.atEnd() && count < childLimit; ++count) {
        AtspiAddress one;
        QDBusObjectPath path;
        list.beginStructure();
        list >> one.service >> path;
        list.endStructure();
        one.path = path.path();
        addresses.push_back(std::move(one));
    }
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
        // What GTK 4 shows is visible only, by its own account.
        return (kind.is(ATSPI_STATE_SHOWING) || kind.is(ATSPI_STATE_VISIBLE))
            && !kind.is(ATSPI_STATE_MANAGES_DESCENDANTS);
    }
}

bool active(const AtspiKind& kind)
{
    return kind.is(ATSPI_STATE_ACTIVE);
}

} // namespace

Task<std::optional<AtspiAddress>> FocusSearch::find(std::int32_t process, QDeadlineTimer deadline)
{
    for (const AtspiAddress& program : co_await programsOf(process, deadline)) {
        Level windows = co_await childrenOf({ program }, deadline);
        if (std::ranges::any_of(windows, active, &Node::kind))
            std::erase_if(windows, [](const Node& window) { return !active(window.kind); });
        if (auto found = co_await findBelow(std::move(windows), deadline))
            co_return found;
    }
    co_return std::nullopt;
}

Task<bool> FocusSearch::hasActiveWindow(QString service, QDeadlineTimer deadline)
{
    const auto windows = co_await childrenOf({ { service, rootPath } }, deadline);
    co_return std::ranges::any_of(windows, active, &Node::kind);
}

Task<std::vector<AtspiAddress>> FocusSearch::activeWindows(
    std::optional<QString> service, QDeadlineTimer deadline)
{
    std::vector<AtspiAddress> programs;
    if (service)
        programs.push_back({ *service, rootPath });
    else
        programs = co_await allPrograms(deadline);
    std::vector<AtspiAddress> found;
    for (const Node& window : co_await childrenOf(std::move(programs), deadline)) {
        if (active(window.kind))
            found.push_back(window.address);
    }
    co_return found;
}

// One depth after the other, each as one volley of questions.
Task<std::optional<AtspiAddress>> FocusSearch::findBelow(Level level, QDeadlineTimer deadline)
{
    std::optional<AtspiAddress> other; // has the focus, but is no field
    for (int depth = 0; depth < depthLimit && !level.empty() && !deadline.hasExpired(); ++depth) {
        std::vector<AtspiAddress> parents;
        for (const Node& node : level) {
            if (node.kind.focusedField())
                co_return node.address;
            if (depth > 0 && node.kind.is(ATSPI_STATE_FOCUSED))
                other = node.address;
            if (depth == 0 || worthEntering(node.kind))
                parents.push_back(node.address);
        }
        level = co_await childrenOf(std::move(parents), deadline);
    }
    co_return other;
}

Task<std::vector<AtspiAddress>> FocusSearch::allPrograms(QDeadlineTimer deadline)
{
    const auto reply = co_await m_bus.call({ QStringLiteral("org.a11y.atspi.Registry"), rootPath },
        atspi::accessible, "GetChildren", "a(so)", deadline);
    std::vector<AtspiAddress> programs;
    if (reply)
        append(programs, *reply);
    co_return programs;
}

Task<std::vector<AtspiAddress>> FocusSearch::programsOf(
    std::int32_t process, QDeadlineTimer deadline)
{
    const auto programs = co_await allPrograms(deadline);
    std::vector<AtspiCall> asking;
    asking.reserve(programs.size());
    for (const AtspiAddress& program : programs)
        asking.push_back(m_bus.processOf(program.service, deadline));
    std::vector<AtspiAddress> found;
    for (std::size_t index = 0; index < programs.size(); ++index) {
        const auto answer = co_await asking[index];
        if (answer && answer->first().toUInt() == std::uint32_t(process))
            found.push_back(programs[index]);
    }
    co_return found;
}

Task<FocusSearch::Level> FocusSearch::childrenOf(
    std::vector<AtspiAddress> parents, QDeadlineTimer deadline)
{
    std::vector<AtspiCall> listing;
    listing.reserve(parents.size());
    for (const AtspiAddress& parent : parents)
        listing.push_back(m_bus.call(parent, atspi::accessible, "GetChildren", "a(so)", deadline));
    std::vector<AtspiAddress> children;
    for (AtspiCall& call : listing) {
        const auto reply = co_await call;
        if (reply && children.size() < levelLimit)
            append(children, *reply);
    }
    std::vector<AtspiCall> states, roles;
    states.reserve(children.size());
    roles.reserve(children.size());
    for (const AtspiAddress& child : children) {
        states.push_back(m_bus.call(child, atspi::accessible, "GetState", "au", deadline));
        roles.push_back(m_bus.call(child, atspi::accessible, "GetRole", "u", deadline));
    }
    Level level;
    for (std::size_t index = 0; index < children.size(); ++index) {
        const auto state = co_await states[index];
        const auto role = co_await roles[index];
        if (state && role)
            level.push_back({ children[index], atspi::kind(*state, *role) });
    }
    co_return level;
}

} // namespace vesko
