#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/capture/AppModel.h"
#include "VeskoApp/capture/Hotkeys.h"

#include <QObject>

#include <functional>

namespace vesko {

// The process around the controller: wires the global inputs, the status item and the floating
// control to it, and ends the program when the controller says that nothing would be lost. Main
// thread.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    AppDelegate(Platform& platform, AppModel& model);

    // Once, when the event loop is about to run. Afterwards the shortcut works.
    void launch();

    // The user wants to see the program, which is running already.
    void applicationShouldHandleReopen();

    // Ends the program as soon as a running capture is safe; a second request while the first is
    // being answered is dropped.
    Q_INVOKABLE void quit();
    // The program is about to end.
    void willTerminate();

    // Shows or hides the floating control as the settings have it.
    std::function<void(bool)> showCaptureControl;
    // Shows where a new user begins, and signs in; nothing as long as there is no such window.
    std::function<void()> showOnboarding;
    // Ends the event loop.
    std::function<void()> terminate;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setupStatusItem();
    void wireHotkeys();
    void showCaptureState();
    void observeAccess();
    Task<> quitWhenSafe();
    bool canStart() const;

    Platform& m_platform;
    AppModel& m_model;
    Hotkeys m_hotkeys;
    GestureKey m_gestureKey;
    bool m_quitting = false;
    TaskScope m_tasks;
};

} // namespace vesko
