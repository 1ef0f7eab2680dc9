#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/Platform.h"

#include <QWindow>

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace vesko {

enum class AppWindow { library, settings, dictionary, onboarding };

// The program's windows. Each is made on first use and kept while the program runs; it is centred
// where the user is at first, and comes back where the user left it, if a screen still holds it
// whole there. Main thread.
class AppWindows {
public:
    explicit AppWindows(Platform& platform);
    AppWindows(const AppWindows&) = delete;
    AppWindows& operator=(const AppWindows&) = delete;
    ~AppWindows();

    // Makes a window of that kind, not yet shown. No window if there is none of that kind.
    std::function<std::unique_ptr<QWindow>(AppWindow)> make;

    // Brings the window forward, on the workspace where the user is. False if there is none.
    bool show(AppWindow kind);
    // The window is gone, and made anew when it is shown again. May be asked for by the window.
    void discard(AppWindow kind);

private:
    struct Place {
        std::unique_ptr<QWindow> window;
        Timer saving;
        std::unique_ptr<QObject> watch = std::make_unique<QObject>(); // of its moves

        Place(std::unique_ptr<QWindow> made, EventClock& clock)
            : window(std::move(made))
            , saving(clock)
        {
        }
    };

    QWindow* find(AppWindow kind);
    void restorePlace(AppWindow kind, QWindow& window);
    void watchPlace(AppWindow kind);
    void savePlace(AppWindow kind);

    Platform& m_platform;
    std::map<AppWindow, Place> m_windows;
};

} // namespace vesko
