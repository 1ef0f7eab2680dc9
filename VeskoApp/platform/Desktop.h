#pragma once

#include <filesystem>

class QRegion;
class QWindow;

namespace vesko {

// Parts of the desktop's own settings.
enum class SettingsPanel { privacy, sound, accessibility, keyboard, startup };

// What the desktop does with windows and folders. Main thread only; nothing here waits.
class Desktop {
public:
    virtual ~Desktop() = default;

    // Moves an open window to the workspace where the user is.
    virtual void bringHere(QWindow& window) = 0;
    // Each time a window has been shown: it stands above all others, on every workspace, and in no
    // list of windows.
    virtual void floatEverywhere(QWindow& window) = 0;
    // Whether what lies below is seen through what is drawn half transparent.
    virtual bool blends() const = 0;
    // Shows no more of the window than that, in the screen's own pixels, and lets what is clicked
    // beside it through to what lies below. All of it, where the desktop can't.
    virtual void cut(QWindow& window, const QRegion& visible) = 0;
    // Opens the folder in the file manager.
    virtual void openFolder(const std::filesystem::path& folder) = 0;
    // Shows the file among the others of its folder, in the file manager; or the folder, where that
    // can't be asked for.
    virtual void showFile(const std::filesystem::path& file) = 0;
    // Opens that part of the desktop's settings, or the settings where it has no such part. False
    // where it has no settings.
    virtual bool openSettings(SettingsPanel panel) = 0;
};

} // namespace vesko
