#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/capture/DesktopKeys.h"
#include "VeskoApp/capture/Hotkeys.h"
#include "VeskoApp/capture/ShortcutChoice.h"
#include "VeskoApp/onboarding/PermissionRows.h"
#include "VeskoApp/shell/AppModel.h"
#include "VeskoApp/shell/AppWindows.h"
#include "VeskoApp/shell/CaptureControl.h"
#include "VeskoApp/shell/DiagnosisView.h"
#include "VeskoApp/shell/RemoteCommands.h"
#include "VeskoCore/shell/DemoScene.h"

#include <QObject>

#include <functional>
#include <vector>

namespace vesko {

// The process around the program: wires the global inputs, the status item, the floating
// control and the windows to it, and ends the program when nothing would
// be lost. Main thread.
class AppDelegate : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool reduceMotion READ reduceMotion NOTIFY appearanceChanged)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY appearanceChanged)
    // The rows of menuRows(), as the user reads them: "title", "keys" (as they are shown),
    // "sequence" and "action"; a row without a title parts two groups.
    Q_PROPERTY(QVariantList menu READ menu CONSTANT)
    // Version, build and licence, line by line.
    Q_PROPERTY(QString about READ about CONSTANT)
    Q_PROPERTY(QObject* shortcut READ shortcut CONSTANT)
    Q_PROPERTY(QObject* desktopKeys READ desktopKeys CONSTANT)
    Q_PROPERTY(QObject* diagnosis READ diagnosis CONSTANT)
    // The desktop has no place for the status icon, or none that can be seen.
    Q_PROPERTY(bool statusIconHidden READ statusIconHidden NOTIFY statusIconHiddenChanged)

public:
    // What the environment asks the program to show, to be photographed.
    struct Demo {
        std::optional<DemoScene> scene;
        std::optional<bool> dark;

        // Nothing unless the data is not the user's own: then `dataRoot` is an absolute path.
        static Demo from(const char* dataRoot, const char* scene, const char* appearance);
    };

    AppDelegate(Platform& platform, AppModel& model);
    ~AppDelegate() override;

    // Once, when the event loop is about to run. Afterwards the shortcut works. In the background
    // no window opens but that which the user has to see.
    void launch(bool background, const Demo& demo = {});

    // The actions of the menus.
    Q_INVOKABLE void toggleCapture() { m_model.capture().toggleDictation(); }
    Q_INVOKABLE void newNote();
    Q_INVOKABLE void openLibrary() { showLibrary(); }
    Q_INVOKABLE void openDictionary();
    Q_INVOKABLE void exportLibrary();
    Q_INVOKABLE void importLibrary();
    Q_INVOKABLE void openSettings() { showSettings(); }
    Q_INVOKABLE void openTour() { showOnboarding(); }
    // Ends the program as soon as a running capture and what was typed are safe; a second request
    // while the first is being answered is dropped.
    Q_INVOKABLE void quit();

    void showLibrary();
    void showSettings();
    void showOnboarding();
    // The user has gone through onboarding to its end.
    Q_INVOKABLE void finishOnboarding();
    // The user wants to see the program, which is running already.
    void applicationShouldHandleReopen() { showLibrary(); }
    // The program is about to end.
    void willTerminate();

    QVariantList menu() const;
    QString about() const;
    bool reduceMotion() const { return m_platform.appearance.reduceMotion(); }
    bool statusIconHidden() const { return m_statusIconHidden; }
    bool highContrast() const { return m_platform.appearance.highContrast(); }
    ShortcutChoice* shortcut() { return &m_shortcut; }
    DesktopKeys* desktopKeys() { return &m_desktopKeys; }
    DiagnosisView* diagnosis() { return &m_diagnosis; }
    AppWindows& windows() { return m_windows; }
    CaptureControl& captureControl() { return m_captureControl; }
    // Nothing is read of the permissions before somebody wants to know.
    PermissionRows& permissions();

    // Makes the window of the floating control, hidden.
    std::function<std::unique_ptr<QWindow>()> makeCapturePanel;
    // Ends the event loop.
    std::function<void()> terminate;

Q_SIGNALS:
    void appearanceChanged();
    // The user wants the library out into a file, or one in.
    void exportWanted();
    void importWanted();
    void statusIconHiddenChanged();

private:
    void setupStatusItem();
    void wireHotkeys();
    RemoteCommands::Program remoteProgram();
    void noteCommand();
    void showCaptureControl();
    void updateCaptureVisibility();
    void observeScreens();
    void screenChanged();
    void openFirstWindow(bool background);
    void observeStatusIcon();
    void checkStatusIcon();
    void showCaptureState();
    void observeAccess();
    void applyAppearance(std::optional<bool> dark);
    void observeActivation();
    // Tells whether nothing would be lost by an end, as soon as a running capture and what was
    // typed are safe.
    void whenSafe(std::function<void(bool)> then);
    Task<> keepAll();
    bool canStart() const;

    // AppDelegateScene.cpp
    Task<> showScene(DemoScene scene);
    void selectNote(std::size_t index);

    Platform& m_platform;
    AppModel& m_model;
    Hotkeys m_hotkeys;
    ShortcutChoice m_shortcut;
    DesktopKeys m_desktopKeys;
    DiagnosisView m_diagnosis;
    std::optional<PermissionRows> m_permissions;
    AppWindows m_windows; // goes before what its windows show
    CaptureControl m_captureControl;
    RemoteCommands m_remote;
    GestureKey m_gestureKey;
    Timer m_statusIconCheck;
    bool m_statusIconChecked = false;
    bool m_statusIconHidden = false;
    bool m_quitting = false;
    std::vector<std::function<void(bool)>> m_whenSafe; // who waits for that
    TaskScope m_tasks;
};

} // namespace vesko
