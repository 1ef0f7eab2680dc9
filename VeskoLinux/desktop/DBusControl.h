#pragma once

#include "VeskoApp/platform/RemoteControl.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QString>

namespace vesko {

// The interface "app.vesko.Vesko" of an object on the session bus, as resources/app.vesko.Vesko.xml
// tells it. What is called before somebody listens can't be done now.
class DBusControl final : public QDBusAbstractAdaptor, public RemoteControl {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.vesko.Vesko")
    Q_PROPERTY(QString Display READ display CONSTANT)
    Q_PROPERTY(bool HasShortcut READ holdsShortcut)

public:
    // Of this object, which is registered with this connection of Qt's.
    DBusControl(QObject& object, QString connection);

    void changed(const RemoteStatus& status) override;

    // The display that this process's windows are on.
    static QString display();
    bool holdsShortcut() const { return hasShortcut && hasShortcut(); }

public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): the names on the bus
    void Toggle(const QDBusMessage& call) { run(RemoteCommand::toggle, call); }
    void Start(const QDBusMessage& call) { run(RemoteCommand::start, call); }
    void Stop(const QDBusMessage& call) { run(RemoteCommand::stop, call); }
    void Cancel(const QDBusMessage& call) { run(RemoteCommand::cancel, call); }
    void Show(const QDBusMessage& call) { run(RemoteCommand::show, call); }
    void Quit(const QDBusMessage& call) { run(RemoteCommand::quit, call); }
    void Press(const QDBusMessage& call) { run(RemoteCommand::press, call); }
    void Release(const QDBusMessage& call) { run(RemoteCommand::release, call); }
    QString Status(QString& title, double& elapsed) const;

Q_SIGNALS:
    void StateChanged(const QString& state, const QString& title);
    // NOLINTEND(readability-identifier-naming)

private:
    void run(RemoteCommand command, const QDBusMessage& call);

    QString m_connection;
};

} // namespace vesko
