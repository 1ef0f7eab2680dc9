#include "VeskoLinux/desktop/DBusNotifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariant>

#include <utility>

namespace vesko {

namespace {

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto path = QStringLiteral("/org/freedesktop/Notifications");

constexpr int serverPatience = 5000; // milliseconds

QDBusMessage callOf(const char* method, const QVariantList& arguments = {})
{
    auto call = QDBusMessage::createMethodCall(service, path, service, QString::fromLatin1(method));
    call.setArguments(arguments);
    return call;
}

} // namespace

DBusNotifications::DBusNotifications()
    : m_server(service, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange)
{
    // Another server knows nothing of the notices of the one before.
    connect(&m_server, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        m_shown = 0;
        m_capabilities.reset();
    });
}

void DBusNotifications::show(Notice notice)
{
    m_withdrawn = false;
    m_next = std::move(notice);
    if (m_asked || !QDBusConnection::sessionBus().isConnected())
        return;
    listen();
    if (m_capabilities)
        send();
    else
        ask();
}

void DBusNotifications::withdraw()
{
    m_next.reset();
    m_withdrawn = m_asked;
    if (m_shown == 0)
        return;
    auto call = callOf("CloseNotification", { std::exchange(m_shown, 0) });
    call.setAutoStartService(false);
    QDBusConnection::sessionBus().send(call);
}

void DBusNotifications::listen()
{
    if (std::exchange(m_listens, true))
        return;
    auto bus = QDBusConnection::sessionBus();
    bus.connect(service, path, service, QStringLiteral("ActionInvoked"), this,
        SLOT(invoked(uint, QString)));
    bus.connect(
        service, path, service, QStringLiteral("NotificationClosed"), this, SLOT(closed(uint)));
}

void DBusNotifications::ask()
{
    m_asked = true;
    auto* const answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(callOf("GetCapabilities"), serverPatience), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        m_asked = false;
        const QDBusPendingReply<QStringList> reply = *answer;
        if (reply.isError()) {
            m_next.reset(); // nobody shows it; the next time there may be somebody
            return;
        }
        m_capabilities = reply.value();
        if (m_next)
            send();
    });
}

void DBusNotifications::send()
{
    const auto notice = std::exchange(m_next, std::nullopt).value();
    QStringList actions;
    if (m_capabilities->contains(QStringLiteral("actions")))
        for (const auto& action : notice.actions)
            actions << QString::fromStdString(action.id) << QString::fromStdString(action.title);
    auto text = QString::fromStdString(notice.text);
    if (m_capabilities->contains(QStringLiteral("body-markup")))
        text = text.toHtmlEscaped();
    m_asked = true;
    auto* const answer = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(
            callOf("Notify",
                { QStringLiteral("Vesko"), m_shown, QStringLiteral("app.vesko.Vesko"),
                    QString::fromStdString(notice.title), text, actions,
                    QVariantMap{
                        { QStringLiteral("desktop-entry"), QStringLiteral("app.vesko.Vesko") } },
                    -1 }),
            serverPatience),
        this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        m_asked = false;
        const QDBusPendingReply<uint> reply = *answer;
        m_shown = reply.isError() ? 0 : reply.value();
        if (reply.isError())
            m_capabilities.reset(); // another server may come
        if (std::exchange(m_withdrawn, false))
            withdraw();
        else if (m_next)
            show(*std::exchange(m_next, std::nullopt));
    });
}

void DBusNotifications::invoked(uint id, const QString& action)
{
    if (id == m_shown && id != 0 && onAction)
        onAction(action.toStdString());
}

void DBusNotifications::closed(uint id)
{
    if (id == m_shown)
        m_shown = 0;
}

} // namespace vesko
