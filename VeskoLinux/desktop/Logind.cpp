#include "VeskoLinux/desktop/Logind.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoLinux/desktop/SessionLog.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace vesko {

namespace {

const auto logind = QStringLiteral("org.freedesktop.login1");
const auto managerPath = QStringLiteral("/org/freedesktop/login1");
const auto manager = QStringLiteral("org.freedesktop.login1.Manager");
const auto sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const auto properties = QStringLiteral("org.freedesktop.DBus.Properties");
const auto lockedHint = QStringLiteral("LockedHint");

QDBusMessage question(const QString& path, const QString& interface, const QString& method)
{
    auto call = QDBusMessage::createMethodCall(logind, path, interface, method);
    call.setAutoStartService(false);
    return call;
}

// Hands over the answer, if one comes and the listener is still there.
template <class Value, class Take>
void ask(QObject* listener, const QDBusMessage& call, Take take)
{
    auto* answer
        = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call), listener);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, listener, [answer, take] {
        const QDBusPendingReply<Value> reply = *answer;
        if (reply.isValid())
            take(reply.value());
        answer->deleteLater();
    });
}

} // namespace

Logind::Logind()
    : m_watcher(logind, QDBusConnection::systemBus(), QDBusServiceWatcher::WatchForOwnerChange)
{
    auto bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return;
    bus.connect(logind, managerPath, manager, QStringLiteral("PrepareForSleep"), this,
        SLOT(prepareForSleep(bool)));
    bus.connect(logind, managerPath, manager, QStringLiteral("PrepareForShutdown"), this,
        SLOT(prepareForShutdown(bool)));
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) {
            m_delay.reset();
            setLocked(false);
            if (!owner.isEmpty())
                meet();
        });
    meet();
}

Logind::~Logind() = default;

void Logind::meet()
{
    delay();
    findSession();
}

void Logind::findSession()
{
    auto call = question(managerPath, manager, QStringLiteral("GetSession"));
    call << QStringLiteral("auto"); // this process's, or that in which the user has the display
    ask<QDBusObjectPath>(this, call, [this](const QDBusObjectPath& session) {
        if (m_session != session.path()) {
            m_session = session.path();
            QDBusConnection::systemBus().connect(logind, m_session, properties,
                QStringLiteral("PropertiesChanged"), this,
                SLOT(sessionChanged(QString, QVariantMap, QStringList)));
        }
        readLocked(m_session);
    });
}

void Logind::readLocked(const QString& session)
{
    auto call = question(session, properties, QStringLiteral("Get"));
    call << sessionInterface << lockedHint;
    ask<QDBusVariant>(
        this, call, [this](const QDBusVariant& value) { setLocked(value.variant().toBool()); });
}

void Logind::setLocked(bool locked)
{
    if (m_locked != locked)
        qCInfo(sessionLog, "session_locked=%d", locked);
    m_locked = locked;
}

void Logind::sessionChanged(
    const QString& interface, const QVariantMap& changed, const QStringList& unknown)
{
    if (interface != sessionInterface)
        return;
    if (const auto value = changed.find(lockedHint); value != changed.end())
        setLocked(value->toBool());
    else if (unknown.contains(lockedHint))
        readLocked(m_session);
}

void Logind::delay()
{
    auto call = question(managerPath, manager, QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep:shutdown") << QStringLiteral("Vesko")
         << translated(L10N_KEY("Vesko", "A running dictation is being saved"))
         << QStringLiteral("delay");
    ask<QDBusUnixFileDescriptor>(this, call, [this](const QDBusUnixFileDescriptor& held) {
        m_delay = std::make_shared<QDBusUnixFileDescriptor>(held);
    });
}

void Logind::prepareForSleep(bool begins)
{
    if (begins)
        announce(onSleep);
    else
        delay();
}

void Logind::prepareForShutdown(bool begins)
{
    if (begins)
        announce(onShutdown);
    else
        delay();
}

void Logind::announce(const std::function<void(Done)>& listener)
{
    // Whatever copies there are of it, closing this one lets the machine go.
    const auto held = std::exchange(m_delay, nullptr);
    if (listener)
        listener([held] {
            if (held)
                *held = QDBusUnixFileDescriptor();
        });
}

} // namespace vesko
