#pragma once

#include <QSocketNotifier>

#include <cstdlib>
#include <functional>
#include <memory>
#include <xcb/xcb.h>

namespace vesko {

// A reply or an event of the X server, which is the receiver's to free.
template <class T>
using FromX11 = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
FromX11<T> fromX11(T* received)
{
    return { received, &std::free };
}

// A connection of our own to the X server of this session. Without a server every request fails.
// Main thread.
class X11Connection {
public:
    X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection();

    operator xcb_connection_t*() const { return m_connection; }
    bool works() const;
    std::uint32_t root() const { return m_root; }

    // Hands over each event as it comes, from the event loop. Afterwards, requests that wait for a
    // reply belong on another connection: events that come with the reply would be left lying.
    void listen(std::function<void(const xcb_generic_event_t&)> onEvent);
    void stopListening() { m_notifier.reset(); }

private:
    void drain(const std::function<void(const xcb_generic_event_t&)>& onEvent);

    xcb_connection_t* m_connection;
    std::uint32_t m_root = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vesko
