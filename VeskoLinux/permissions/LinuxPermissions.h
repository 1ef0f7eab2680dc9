#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/Permissions.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>
#include <mutex>

namespace vesko {

// Asks the sound server and the accessibility bus, and the latter again whenever it tells of a
// change, comes or goes. A sound server that hangs keeps a thread of its own waiting, and nobody
// else.
class LinuxPermissions final : public QObject, public Permissions {
    Q_OBJECT
public:
    LinuxPermissions();
    ~LinuxPermissions() override;

    bool microphone() const override { return m_microphone; }
    bool accessibility() const override { return m_accessibility; }
    void look() override;
    Task<bool> requestMicrophone() override;
    Task<bool> requestAccessibility() override;

private:
    // What a thread that is done finds of us.
    struct Home {
        std::mutex mutex;
        LinuxPermissions* owner = nullptr; // null once that is gone
    };
    Eventual<bool> ask(bool (*question)());
    Task<> lookForMicrophone();
    Q_SLOT void lookForAccessibility();

    std::shared_ptr<Home> m_home = std::make_shared<Home>();
    bool m_looking = false;
    bool m_microphone = false;
    bool m_accessibility = false;
    QDBusServiceWatcher m_watcher; // of who gives out the accessibility bus
    TaskScope m_tasks;
};

} // namespace vesko
