#pragma once

#include "VeskoApp/platform/RunningInstance.h"
#include "VeskoLinux/desktop/DBusControl.h"

#include <QDBusContext>
#include <QObject>
#include <QVariant>

#include <filesystem>

namespace vesko {

// The one Vesko of a desktop session: whoever has the name "app.vesko.Vesko" on the session bus.
// Another session of the same user has a library of its own, or finds the one that has the lock. It
// can be called there as any application, which is how a second start, or another program, reaches
// it. https://specifications.freedesktop.org/desktop-entry-spec/latest/dbus.html
class DBusRunningInstance final : public QObject, public RunningInstance, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // Made on the main thread, on which the calls arrive; needs no application object yet.
    DBusRunningInstance();
    // The name is free again.
    ~DBusRunningInstance() override;

    // Becomes the one. False if another is, on this bus, or on another if it holds `lock`. That has
    // then been told of the addresses if there are any, and else to show itself, unless this start
    // was meant to be `quiet`. Throws std::runtime_error if another one has to be told and does not
    // answer. Blocks; any thread, once.
    bool claim(const std::vector<std::string>& addresses, bool quiet = false,
        const std::filesystem::path& lock = {});

    // After a claim: the display on which the one is, or who else has the lock and can't be told of
    // anything, if that isn't ours; else empty.
    const std::string& elsewhere() const { return m_elsewhere; }

    // What else can be asked of the one.
    RemoteControl& control() { return m_control; }

    // NOLINTBEGIN(readability-identifier-naming): the names on the bus
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& addresses, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(
        const QString& action, const QVariantList& parameter, const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    bool claimHere(const std::vector<std::string>& addresses, bool quiet);
    bool findElsewhere(
        const std::filesystem::path& lock, const std::vector<std::string>& addresses, bool quiet);

    QString m_connection;
    std::string m_elsewhere;
    DBusControl& m_control; // a child, as adaptors are
};

} // namespace vesko
