// What other programs of the session say of themselves on its bus.

#include "VeskoLinux/doctor/Checks.h"
#include "VeskoLinux/doctor/SessionBus.h"

#include <QDBusConnection>
#include <QDBusObjectPath>

namespace vesko {

Finding lookAtProgram()
{
    if (!QDBusConnection::sessionBus().isConnected())
        return Finding::wanting("there is no session bus",
            "Start Vesko from within your desktop, or install dbus-user-session.");
    const auto name = QStringLiteral("app.vesko.Vesko");
    const auto state
        = ask(name, QStringLiteral("/app/vesko/Vesko"), name, QStringLiteral("Status"));
    if (!state)
        return Finding::fact("Vesko is not running");
    if (state->toString() == QStringLiteral("unavailable"))
        return Finding::wanting("Vesko runs, but its library is not open", "Its window says why.");
    return Finding::fine("Vesko runs: " + state->toString().toStdString());
}

Finding lookAtAccessibility()
{
    const auto bus = QStringLiteral("org.a11y.Bus");
    const auto path = QStringLiteral("/org/a11y/bus");
    if (!serves(bus))
        return Finding::wanting("there is no accessibility bus, so no text can be pasted",
            "Install the package at-spi2-core, and start the session anew.");
    const auto enabled
        = property(bus, path, QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled"));
    if (!enabled || !enabled->toBool())
        return Finding::fact("off; Vesko turns it on when it starts");
    return Finding::fine("on");
}

Finding lookAtTray()
{
    const auto watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    const auto hosted = property(watcher, QStringLiteral("/StatusNotifierWatcher"), watcher,
        QStringLiteral("IsStatusNotifierHostRegistered"));
    if (hosted && hosted->toBool())
        return Finding::fine("there is a place for the status icon");
    return Finding::wanting("the desktop shows no status icons",
        "The floating control does the same. On GNOME the extension AppIndicator helps.");
}

Finding lookAtNotifications()
{
    const bool served = serves(QStringLiteral("org.freedesktop.Notifications"));
    return served ? Finding::fine("shown by the desktop")
                  : Finding::fact("this desktop shows none");
}

Finding lookAtKeyring()
{
    const auto secrets = QStringLiteral("org.freedesktop.secrets");
    if (!serves(secrets))
        return Finding::wanting("there is no keyring, so no key can be stored",
            "Install gnome-keyring or kwalletmanager. Recognition on this computer needs none.");
    const auto alias = ask(secrets, QStringLiteral("/org/freedesktop/secrets"),
        QStringLiteral("org.freedesktop.Secret.Service"), QStringLiteral("ReadAlias"),
        { QStringLiteral("default") });
    const auto collection = alias ? alias->value<QDBusObjectPath>().path() : QString();
    if (collection.size() < 2)
        return Finding::fact("there is one, which is not in use yet");
    const auto locked = property(secrets, collection,
        QStringLiteral("org.freedesktop.Secret.Collection"), QStringLiteral("Locked"));
    if (locked && locked->toBool())
        return Finding::fact("locked; the desktop asks for its password");
    return Finding::fine("unlocked");
}

} // namespace vesko
