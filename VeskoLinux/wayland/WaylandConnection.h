#pragma once

#include "VeskoApp/async/Eventual.h"

#include <QSocketNotifier>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct wl_callback;
struct wl_display;
struct wl_interface;
struct wl_registry;
struct wl_seat;

namespace vesko {

// A connection of our own to the compositor of this session, so that it is there whatever Qt draws
// its windows with. Main thread; events are served from the event loop. Once the compositor has
// gone it stays gone: what was bound may still be destroyed, and nothing else is heard of it.
class WaylandConnection {
public:
    // Waits for the compositor's list of what it offers, for five seconds at most: with a
    // compositor that takes longer, and with none, nothing is offered.
    WaylandConnection();
    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;
    // Whatever was bound goes first.
    ~WaylandConnection();

    bool works() const;
    // Null if there is none.
    wl_seat* seat() const { return m_seat; }
    bool offers(const wl_interface& interface) const;
    // Null if it isn't offered. Version 1.
    template <class T>
    T* bind(const wl_interface& interface) const
    {
        return static_cast<T*>(bind(interface, 1));
    }

    // Sends what was requested.
    void flush();
    // Sends what was requested. Comes when the compositor has done it; false if it goes before.
    Eventual<bool> done();

private:
    void* bind(const wl_interface& interface, std::uint32_t version) const;
    void settle();
    void serve();
    void end();

    static void added(void* self, wl_registry*, std::uint32_t number, const char* interface,
        std::uint32_t version);
    static void removed(void* self, wl_registry*, std::uint32_t number);
    static void finished(void* self, wl_callback* callback, std::uint32_t);

    wl_display* m_display;
    wl_registry* m_registry = nullptr;
    wl_seat* m_seat = nullptr;
    std::map<std::string, std::uint32_t> m_globals; // the first of each interface
    std::map<wl_callback*, Eventual<bool>> m_awaited;
    std::unique_ptr<QSocketNotifier> m_readable, m_writable;
};

} // namespace vesko
