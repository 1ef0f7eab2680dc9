#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/Clipboard.h"
#include "VeskoApp/platform/DesktopShortcut.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoApp/platform/KeyInput.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoApp/platform/SessionOffer.h"
#include "VeskoApp/platform/SessionState.h"
#include "VeskoApp/platform/SettingsStore.h"

#include <memory>
#include <string>

namespace vesko {

// The parts of the machine that depend on who draws its windows, each chosen by what that one
// offers, whatever its name. Main thread.
class LinuxSession {
public:
    // Before there is an application: under Wayland, too, its windows are those of X11 where they
    // can be, since only there a window can stay above others and leave the focus where it is.
    // Whether it has set the variable for it, which children are not to inherit.
    static bool chooseWindowSystem();

    // Who draws the windows and what does the rest, in words for a report. Needs an application for
    // its event loop, of whatever kind.
    static std::string summary();

    // After the application has been made. All outlive this.
    LinuxSession(EventClock& clock, SettingsStore& settings, const SessionState& state);
    ~LinuxSession();

    const SessionOffer& offer() const { return m_offer; }
    FocusedField& focusedField() const;
    PasteKeystroke& pasteKeystroke() const;
    Clipboard& clipboard() const;
    GlobalShortcut& shortcut() const;
    KeyMonitor& keys() const;
    DesktopShortcut* desktopShortcut() const; // null: there is none

private:
    struct Parts;
    class X11;
    class Wayland;

    SessionOffer m_offer;
    std::unique_ptr<Parts> m_parts;
};

} // namespace vesko
