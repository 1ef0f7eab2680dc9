#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoApp/platform/SessionState.h"
#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoLinux/portal/PortalRequests.h"
#include "VeskoLinux/wayland/PasteKeys.h"
#include "VeskoLinux/wayland/UsersKeymap.h"

#include <QDBusObjectPath>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Pastes through a session of the desktop's portal for remote control, which is open from the
// dictation to its paste. The desktop may ask the user whether that is all right; what it lets a
// program remember of the answer is kept in the settings, so that it asks once; one that lets
// nothing be remembered asks each time. The desktop tells
// nobody which window has the keyboard, nor what holds it. Main thread.
class PortalPasteKeystroke final : public PasteKeystroke {
public:
    // Whether a part of this desktop's does what the portal is asked for: by the files that
    // describe such parts, since to ask the portal itself may mean to wait for its start.
    static bool offered();

    // Uptime at which the user held the program's shortcut last: now while it is held; nothing if
    // never, or if nobody tells.
    using ShortcutHeld = std::function<std::optional<double>()>;

    // Whether the compositor has taken what was copied last; comes when that is known.
    using ClipboardTaken = std::function<Eventual<bool>()>;

    // All outlive this.
    PortalPasteKeystroke(WaylandConnection& connection, const SessionState& state,
        EventClock& clock, SettingsStore& settings, FocusedField& fields, ShortcutHeld shortcutHeld,
        ClipboardTaken clipboardTaken);

    void prepare() override;
    // A question that the user hasn't answered yet stays, if something of the answer is remembered.
    void release() override;
    // Of the user's keys the desktop tells those of the program's own shortcut alone, and only that
    // one of them is up: the others have a moment to follow it. Keys that are held mix with those
    // that are sent. Not before the compositor has the clipboard, since keys may overtake it.
    Eventual<std::monostate> keysReleased() override;
    // Of a grabbed keyboard nothing is known. "still_asked" while the user is being asked.
    std::optional<std::string> keyboardTaken() const override;
    // "keys_held" of that shortcut alone. Where nothing was prepared, opening takes up to a second,
    // after which the field is looked at again: "app_changed" if another has the focus by then.
    // "still_asked" if the user is asked meanwhile, "not_allowed" after a no; "event_failed" too if
    // the desktop has ended what was open, or has not taken the clipboard.
    Eventual<std::optional<std::string>> send(const FieldElement& element) override;

private:
    using Obstacle = std::optional<std::string>;

    Task<> run(std::vector<KeyStep> steps, Eventual<Obstacle> answer);
    Task<> awaitClipboard(Eventual<std::monostate> released);
    Task<> open();
    Task<bool> type(std::vector<KeyStep> steps);
    void close();
    void look();

    const SessionState& m_desktop;
    EventClock& m_clock;
    SettingsStore& m_settings;
    FocusedField& m_fields;
    ShortcutHeld m_shortcutHeld;
    ClipboardTaken m_clipboardTaken;
    bool m_hasClipboard = true; // as keysReleased() has found
    PortalRequests m_requests;
    std::optional<PasteKeys> m_keys;
    UsersKeymap m_usersKeymap;
    std::optional<QDBusObjectPath> m_session;
    // Of the session: it is being opened, is open and good for the keyboard, or couldn't be opened.
    enum class State : std::uint8_t { none, opening, open, declined, failed };
    Task<State> opened();
    Obstacle obstacleNow() const;

    State m_state = State::none;
    double m_asked = 0; // uptime at which the user may have been asked first, of this opening
    bool m_remembers = false; // the desktop, what the user has answered
    Eventual<std::monostate> m_openingEnds;
    bool m_wanted = false; // still, by the time it is open
    bool m_busy = false;
    Timer m_pause;
    Timer m_look;
    double m_patienceEnds = 0; // uptime
    std::optional<Eventual<std::monostate>> m_released; // while somebody waits
    TaskScope m_tasks;
};

} // namespace vesko
