#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/Permissions.h"

#include <QObject>

#include <memory>
#include <mutex>

namespace vesko {

// Asks the sound server and the accessibility bus. A sound server that hangs keeps a thread of its
// own waiting, and nobody else.
class LinuxPermissions final : public QObject, public Permissions {
public:
    LinuxPermissions();
    ~LinuxPermissions() override;

    bool microphone() const override { return m_microphone; }
    bool accessibility() const override { return m_accessibility; }
    void look() override;
    Task<bool> requestMicrophone() override;
    void requestAccessibility() override;

private:
    // What a thread that is done finds of us.
    struct Home {
        std::mutex mutex;
        LinuxPermissions* owner = nullptr; // null once that is gone
    };
    Eventual<bool> ask(bool (*question)());
    Task<> lookForMicrophone();
    void lookForAccessibility();

    std::shared_ptr<Home> m_home = std::make_shared<Home>();
    bool m_looking = false;
    bool m_microphone = false;
    bool m_accessibility = false;
    TaskScope m_tasks;
};

} // namespace vesko
