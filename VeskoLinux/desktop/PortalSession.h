#pragma once

#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariant>

#include <functional>

namespace vesko {

// What the desktop's portal tells of the session's end. It asks before it ends the session, and
// goes on when all programs have answered, or by itself after a second. Without it nothing is told,
// and it isn't started for this. Main thread; nothing here waits.
class PortalSession final : public QObject {
    Q_OBJECT

public:
    PortalSession();

    // `done` lets the session end.
    using Done = std::function<void()>;
    std::function<void(Done done)> onEnd;

private Q_SLOTS:
    void stateChanged(const QDBusObjectPath& monitor, const QVariantMap& state);

private:
    void watch();

    QDBusServiceWatcher m_watcher;
};

} // namespace vesko
