#include "VeskoLinux/desktop/PortalSession.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace vesko {

namespace {

const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto inhibit = QStringLiteral("org.freedesktop.portal.Inhibit");

constexpr uint queryEnd = 2; // of the portal's states of a session; 1 is "running", 3 "ending"

QDBusMessage question(const QString& method)
{
    auto call = QDBusMessage::createMethodCall(portal, portalPath, inhibit, method);
    call.setAutoStartService(false);
    return call;
}

} // namespace

PortalSession::PortalSession()
    : m_watcher(portal, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration)
{
    // By name Qt knows the type only once somebody has asked for its number; until then the slot
    // would not be found, and never be called.
    qRegisterMetaType<QDBusObjectPath>();
    QDBusConnection::sessionBus().connect(portal, portalPath, inhibit,
        QStringLiteral("StateChanged"), this, SLOT(stateChanged(QDBusObjectPath, QVariantMap)));
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalSession::watch);
    watch();
}

void PortalSession::watch()
{
    const auto token = QStringLiteral("vesko_session");
    auto call = question(QStringLiteral("CreateMonitor"));
    call << QString() // no window
         << QVariantMap{ { QStringLiteral("handle_token"), token },
                { QStringLiteral("session_handle_token"), token } };
    QDBusConnection::sessionBus().send(call);
}

void PortalSession::stateChanged(const QDBusObjectPath& monitor, const QVariantMap& state)
{
    if (state[QStringLiteral("session-state")].toUInt() != queryEnd)
        return;
    Done done = [monitor] {
        auto call = question(QStringLiteral("QueryEndResponse"));
        call << QVariant::fromValue(monitor);
        QDBusConnection::sessionBus().send(call);
    };
    if (onEnd)
        onEnd(std::move(done));
    else
        done();
}

} // namespace vesko
