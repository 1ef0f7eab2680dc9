#pragma once

#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

namespace vesko {

// What systemd-logind tells on the system bus: that this session is locked, and that the machine is
// about to sleep or to be shut down, which it delays for us, by its own setting for five seconds at
// most. Without it nothing is told.
class Logind final : public QObject {
    Q_OBJECT

public:
    Logind();
    ~Logind() override;

    bool locked() const { return m_locked; }

    // `done` lets the machine go on.
    using Done = std::function<void()>;
    std::function<void(Done done)> onSleep;
    std::function<void(Done done)> onShutdown;

private Q_SLOTS:
    void prepareForSleep(bool begins);
    void prepareForShutdown(bool begins);
    void sessionChanged(
        const QString& interface, const QVariantMap& changed, const QStringList& unknown);

private:
    void meet();
    void findSession();
    void readLocked(const QString& session);
    void setLocked(bool locked);
    void delay();
    void announce(const std::function<void(Done)>& listener);

    QDBusServiceWatcher m_watcher;
    QString m_session; // the path of ours
    bool m_locked = false;
    // While it is open, the machine waits; shared with whoever is to close it.
    std::shared_ptr<QDBusUnixFileDescriptor> m_delay;
};

} // namespace vesko
