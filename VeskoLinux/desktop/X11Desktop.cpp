#include "VeskoLinux/desktop/X11Desktop.h"

#include "VeskoLinux/desktop/SettingsPanels.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QRegion>
#include <QUrl>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <vector>
#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace vesko {

namespace {

constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;
constexpr std::uint32_t fromAnApplication = 1;
// WM_HINTS: flags first, the leader of the window's group last.
// https://x.org/releases/X11R7.6/doc/xorg-docs/specs/ICCCM/icccm.html#wm_hints_property
using WindowHints = std::array<std::uint32_t, 9>;
constexpr std::uint32_t hasGroup = 64;
constexpr std::uint32_t mostAbilities = 1024; // of a window manager; real ones name some hundred

template <class T>
std::unique_ptr<T, decltype(&std::free)> owned(T* reply)
{
    return { reply, &std::free };
}

} // namespace

X11Desktop::X11Desktop()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    m_connection = x11->connection();
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_compositor = atom("_NET_WM_CM_S0");
}

void X11Desktop::bringHere(QWindow& window)
{
    if (!m_connection)
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto here = cardinal(m_root, "_NET_CURRENT_DESKTOP", everyWorkspace);
    const auto there = cardinal(id, "_NET_WM_DESKTOP", everyWorkspace);
    if (here == everyWorkspace || there == everyWorkspace || here == there)
        return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = atom("_NET_WM_DESKTOP");
    message.data.data32[0] = here;
    message.data.data32[1] = fromAnApplication;
    xcb_send_event(m_connection, 0, m_root,
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
        reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection);
}

// The window manager reads these when the window is mapped, and takes them away when it is hidden.
void X11Desktop::floatEverywhere(QWindow& window)
{
    if (!m_connection)
        return;
    // A window manager that lays windows side by side would give this one a place among them, and
    // the focus with it.
    window.setFlag(Qt::BypassWindowManagerHint, !managerKeepsAbove());
    const auto id = static_cast<xcb_window_t>(window.winId());
    const std::array states{ atom("_NET_WM_STATE_ABOVE"), atom("_NET_WM_STATE_STICKY"),
        atom("_NET_WM_STATE_SKIP_TASKBAR"), atom("_NET_WM_STATE_SKIP_PAGER") };
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom("_NET_WM_STATE"),
        XCB_ATOM_ATOM, 32, states.size(), states.data());
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom("_NET_WM_DESKTOP"),
        XCB_ATOM_CARDINAL, 32, 1, &everyWorkspace);
    // KWin goes by the first, and would flash any other kind that comes without the focus; wlroots
    // gives the focus to what isn't the second.
    const std::array kinds{ atom("_NET_WM_WINDOW_TYPE_TOOLBAR"),
        atom("_NET_WM_WINDOW_TYPE_UTILITY") };
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, id, atom("_NET_WM_WINDOW_TYPE"),
        XCB_ATOM_ATOM, 32, kinds.size(), kinds.data());
    makeOwnGroup(id);
}

// KWin hides such windows while nothing of their group is in use, but not one that is a group of
// its own.
void X11Desktop::makeOwnGroup(std::uint32_t window) const
{
    const auto hints = owned(xcb_get_property_reply(m_connection,
        xcb_get_property(m_connection, 0, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 0,
            std::tuple_size_v<WindowHints>),
        nullptr));
    WindowHints values{};
    if (hints && xcb_get_property_value_length(hints.get()) == sizeof values)
        std::memcpy(values.data(), xcb_get_property_value(hints.get()), sizeof values);
    values.front() |= hasGroup;
    values.back() = window;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS,
        XCB_ATOM_WM_HINTS, 32, values.size(), values.data());
}

// Asked anew each time, as a compositor may come and go. Its selection has the screen's number, and
// there is one screen everywhere.
bool X11Desktop::blends() const
{
    if (!m_connection)
        return true;
    const auto owner = owned(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, m_compositor), nullptr));
    return owner && owner->owner != XCB_NONE;
}

// Qt would cut in points, which are steps on a screen that has several pixels to each.
void X11Desktop::cut(QWindow& window, const QRegion& visible)
{
    if (!m_connection)
        return;
    std::vector<xcb_rectangle_t> parts;
    for (const auto& part : visible)
        parts.push_back({ static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
            static_cast<std::uint16_t>(part.width()), static_cast<std::uint16_t>(part.height()) });
    xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
        XCB_CLIP_ORDERING_YX_BANDED, static_cast<xcb_window_t>(window.winId()), 0, 0,
        static_cast<std::uint32_t>(parts.size()), parts.data());
    xcb_flush(m_connection);
}

void X11Desktop::openFolder(const std::filesystem::path& folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(folder.string())));
}

// https://www.freedesktop.org/wiki/Specifications/file-manager-interface/
void X11Desktop::showFile(const std::filesystem::path& file)
{
    const auto manager = QStringLiteral("org.freedesktop.FileManager1");
    auto call = QDBusMessage::createMethodCall(manager,
        QStringLiteral("/org/freedesktop/FileManager1"), manager, QStringLiteral("ShowItems"));
    const auto address = QUrl::fromLocalFile(QString::fromStdString(file.string()));
    call << QStringList{ address.toString(QUrl::FullyEncoded) } << QString();
    auto* const heard
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), qGuiApp);
    QObject::connect(heard, &QDBusPendingCallWatcher::finished, qGuiApp,
        [this, heard, folder = file.parent_path()] {
            heard->deleteLater();
            if (heard->isError())
                openFolder(folder);
        });
}

bool X11Desktop::openSettings(SettingsPanel panel)
{
    for (auto command : settingsCommands(panel, qEnvironmentVariable("XDG_CURRENT_DESKTOP"))) {
        const QString program = command.takeFirst();
        if (QProcess::startDetached(program, command))
            return true;
    }
    return false;
}

// Asked anew each time: another window manager may have come.
bool X11Desktop::managerKeepsAbove() const
{
    const auto reply = owned(xcb_get_property_reply(m_connection,
        xcb_get_property(
            m_connection, 0, m_root, atom("_NET_SUPPORTED"), XCB_ATOM_ATOM, 0, mostAbilities),
        nullptr));
    if (!reply || reply->format != 32)
        return false;
    const auto* const all = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    const std::span abilities(
        all, static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof *all);
    return std::ranges::find(abilities, atom("_NET_WM_STATE_ABOVE")) != abilities.end();
}

std::uint32_t X11Desktop::atom(const char* name) const
{
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const auto reply = owned(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, length, name), nullptr));
    return reply ? reply->atom : static_cast<std::uint32_t>(XCB_ATOM_NONE);
}

std::uint32_t X11Desktop::cardinal(
    std::uint32_t window, const char* property, std::uint32_t absent) const
{
    const auto reply = owned(xcb_get_property_reply(m_connection,
        xcb_get_property(m_connection, 0, window, atom(property), XCB_ATOM_CARDINAL, 0, 1),
        nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(std::uint32_t))
        return absent;
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

} // namespace vesko
