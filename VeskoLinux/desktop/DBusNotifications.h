#pragma once

#include "VeskoApp/platform/Notifications.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>

#include <optional>

namespace vesko {

// org.freedesktop.Notifications, whoever serves it. A server that hangs holds nothing up: only the
// last notice waits for it.
// https://specifications.freedesktop.org/notification-spec/latest/
class DBusNotifications final : public QObject, public Notifications {
    Q_OBJECT

public:
    DBusNotifications();

    void show(Notice notice) override;
    void withdraw() override;

private Q_SLOTS:
    void invoked(uint id, const QString& action);
    void closed(uint id);

private:
    void listen();
    void ask();
    void send();

    QDBusServiceWatcher m_server;
    std::optional<QStringList> m_capabilities; // of the server, once it has been asked
    std::optional<Notice> m_next;
    uint m_shown = 0; // the server's number for the notice; 0 for none
    bool m_asked = false; // an answer of the server's is outstanding
    bool m_withdrawn = false; // what was sent is to go as soon as its number is known
    bool m_listens = false;
};

} // namespace vesko
