#include "VeskoLinux/wayland/WaylandConnection.h"

#include <QDeadlineTimer>

#include <wayland-client.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <poll.h>

namespace vesko {

namespace {

constexpr int patience = 5000; // milliseconds for the compositor to say what it offers

// Without a name the library would take the first one that it finds, which in a session of X11 is
// another session's.
wl_display* compositorOfThisSession()
{
    const bool named = std::getenv("WAYLAND_DISPLAY") || std::getenv("WAYLAND_SOCKET");
    return named ? wl_display_connect(nullptr) : nullptr;
}

} // namespace

WaylandConnection::WaylandConnection()
    : m_display(compositorOfThisSession())
{
    if (!m_display)
        return;
    m_registry = wl_display_get_registry(m_display);
    static constexpr wl_registry_listener listener{ &added, &removed };
    wl_registry_add_listener(m_registry, &listener, this);
    settle();
    m_seat = bind<wl_seat>(wl_seat_interface);
    const int descriptor = wl_display_get_fd(m_display);
    m_readable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    m_writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    m_writable->setEnabled(false);
    QObject::connect(
        m_readable.get(), &QSocketNotifier::activated, m_readable.get(), [this] { serve(); });
    QObject::connect(
        m_writable.get(), &QSocketNotifier::activated, m_writable.get(), [this] { flush(); });
}

WaylandConnection::~WaylandConnection()
{
    if (!m_display)
        return;
    m_readable.reset();
    m_writable.reset();
    for (const auto& [callback, answer] : m_awaited)
        wl_callback_destroy(callback);
    if (m_seat)
        wl_seat_destroy(m_seat);
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
}

bool WaylandConnection::works() const
{
    return m_display && wl_display_get_error(m_display) == 0;
}

bool WaylandConnection::offers(const wl_interface& interface) const
{
    return works() && m_globals.contains(interface.name);
}

void* WaylandConnection::bind(const wl_interface& interface, std::uint32_t version) const
{
    if (!offers(interface))
        return nullptr;
    return wl_registry_bind(m_registry, m_globals.at(interface.name), &interface, version);
}

void WaylandConnection::settle()
{
    const QDeadlineTimer deadline(patience);
    bool settled = false;
    wl_callback* const listed = wl_display_sync(m_display);
    static constexpr wl_callback_listener listener{ [](void* told, wl_callback*, std::uint32_t) {
        *static_cast<bool*>(told) = true;
    } };
    wl_callback_add_listener(listed, &listener, &settled);
    while (!settled && works() && !deadline.hasExpired()) {
        wl_display_flush(m_display);
        if (wl_display_prepare_read(m_display) != 0) {
            wl_display_dispatch_pending(m_display);
            continue;
        }
        pollfd ready{ wl_display_get_fd(m_display), POLLIN, 0 };
        if (poll(&ready, 1, static_cast<int>(deadline.remainingTime())) > 0)
            wl_display_read_events(m_display);
        else
            wl_display_cancel_read(m_display);
        wl_display_dispatch_pending(m_display);
    }
    wl_callback_destroy(listed);
}

void WaylandConnection::flush()
{
    if (!works())
        return;
    const bool full = wl_display_flush(m_display) < 0 && errno == EAGAIN;
    if (m_writable)
        m_writable->setEnabled(full);
}

Eventual<bool> WaylandConnection::done()
{
    if (!works())
        return Eventual<bool>::of(false);
    wl_callback* const callback = wl_display_sync(m_display);
    static constexpr wl_callback_listener listener{ &finished };
    wl_callback_add_listener(callback, &listener, this);
    const auto answer = m_awaited[callback];
    flush();
    return answer;
}

void WaylandConnection::finished(void* self, wl_callback* callback, std::uint32_t)
{
    auto known = static_cast<WaylandConnection*>(self)->m_awaited.extract(callback);
    wl_callback_destroy(callback);
    known.mapped().set(true);
}

void WaylandConnection::serve()
{
    if (wl_display_prepare_read(m_display) == 0)
        wl_display_read_events(m_display);
    wl_display_dispatch_pending(m_display);
    flush();
    if (!works())
        end();
}

// A compositor that has gone leaves the connection readable for ever.
void WaylandConnection::end()
{
    m_readable->setEnabled(false);
    m_writable->setEnabled(false);
    for (auto& [callback, answer] : std::exchange(m_awaited, {})) {
        wl_callback_destroy(callback);
        answer.set(false);
    }
}

void WaylandConnection::added(
    void* self, wl_registry*, std::uint32_t number, const char* interface, std::uint32_t)
{
    static_cast<WaylandConnection*>(self)->m_globals.try_emplace(interface, number);
}

void WaylandConnection::removed(void* self, wl_registry*, std::uint32_t number)
{
    std::erase_if(static_cast<WaylandConnection*>(self)->m_globals,
        [number](const auto& known) { return known.second == number; });
}

} // namespace vesko
