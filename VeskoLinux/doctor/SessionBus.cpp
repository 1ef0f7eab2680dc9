#include "VeskoLinux/doctor/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

namespace vesko {

namespace {

constexpr int patience = 3000; // milliseconds

} // namespace

std::optional<QVariant> ask(const QString& service, const QString& path, const QString& interface,
    const QString& method, const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    const auto reply = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return std::nullopt;
    return reply.arguments().value(0);
}

std::optional<QVariant> property(
    const QString& service, const QString& path, const QString& interface, const QString& name)
{
    const auto value = ask(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"), { interface, name });
    return value ? std::optional(value->value<QDBusVariant>().variant()) : std::nullopt;
}

bool serves(const QString& service)
{
    const auto* const bus = QDBusConnection::sessionBus().interface();
    if (!bus)
        return false;
    return bus->isServiceRegistered(service)
        || bus->activatableServiceNames().value().contains(service);
}

} // namespace vesko
