#include "VeskoLinux/input/X11Connection.h"

#include <QMetaObject>

namespace vesko {

X11Connection::X11Connection()
{
    int screen = 0;
    m_connection = xcb_connect(nullptr, &screen);
    if (!works())
        return;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; screens.rem && screen > 0; --screen)
        xcb_screen_next(&screens);
    m_root = screens.rem ? screens.data->root : static_cast<std::uint32_t>(XCB_NONE);
}

X11Connection::~X11Connection()
{
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

bool X11Connection::works() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

void X11Connection::listen(std::function<void(const xcb_generic_event_t&)> onEvent)
{
    if (!works())
        return;
    xcb_flush(m_connection);
    m_notifier = std::make_unique<QSocketNotifier>(
        xcb_get_file_descriptor(m_connection), QSocketNotifier::Read);
    const auto serve = [this, onEvent = std::move(onEvent)] { drain(onEvent); };
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), serve);
    // What came together with an earlier answer makes no more noise on the socket.
    QMetaObject::invokeMethod(m_notifier.get(), serve, Qt::QueuedConnection);
}

void X11Connection::drain(const std::function<void(const xcb_generic_event_t&)>& onEvent)
{
    // An event may end the listening, and with it the function that is being called.
    const auto handle = onEvent;
    while (const auto event = fromX11(xcb_poll_for_event(m_connection))) {
        handle(*event);
        if (!m_notifier)
            return;
    }
    // A server that has gone leaves the connection readable for ever.
    if (!works())
        m_notifier->setEnabled(false);
}

} // namespace vesko
