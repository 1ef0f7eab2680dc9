#include "VeskoLinux/desktop/DBusControl.h"

#include <QDBusConnection>

#include <utility>

namespace vesko {

namespace {

QDBusMessage replyTo(const QDBusMessage& call, RemoteAnswer answer)
{
    switch (answer) {
    case RemoteAnswer::done:
        return call.createReply();
    case RemoteAnswer::notNow:
        return call.createErrorReply(
            QStringLiteral("app.vesko.Vesko.Error.NotNow"), QStringLiteral("it can't be done now"));
    case RemoteAnswer::failed:
        break;
    }
    return call.createErrorReply(
        QStringLiteral("app.vesko.Vesko.Error.Failed"), QStringLiteral("it failed"));
}

} // namespace

DBusControl::DBusControl(QObject& object, QString connection)
    : QDBusAbstractAdaptor(&object)
    , m_connection(std::move(connection))
{
}

void DBusControl::run(RemoteCommand command, const QDBusMessage& call)
{
    call.setDelayedReply(true);
    auto answer = [call, name = m_connection](RemoteAnswer outcome) {
        if (call.isReplyRequired())
            QDBusConnection(name).send(replyTo(call, outcome));
    };
    if (onCommand)
        onCommand(command, std::move(answer));
    else
        answer(RemoteAnswer::notNow);
}

QString DBusControl::display()
{
    const auto x11 = qEnvironmentVariable("DISPLAY");
    return x11.isEmpty() ? qEnvironmentVariable("WAYLAND_DISPLAY") : x11;
}

QString DBusControl::Status(QString& title, double& elapsed) const
{
    const RemoteStatus now = status ? status() : RemoteStatus{ QStringLiteral("unavailable"), {} };
    title = now.title;
    elapsed = now.elapsed;
    return now.state;
}

void DBusControl::changed(const RemoteStatus& status)
{
    Q_EMIT StateChanged(status.state, status.title);
}

} // namespace vesko
