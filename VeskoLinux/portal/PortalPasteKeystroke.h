#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoApp/platform/SessionState.h"
#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoLinux/portal/PortalRequests.h"
#include "VeskoLinux/wayland/PasteKeys.h"
#include "VeskoLinux/wayland/UsersKeymap.h"

#include <QDBusObjectPath>

#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Pastes through a session of the desktop's portal for remote control, which is open for no longer
// than the paste takes. The desktop may ask the user whether that is all right; what it lets a
// program remember of the answer is kept in the settings, so that it asks once. The desktop tells
// nobody which window has the keyboard, nor what holds it. Main thread.
class PortalPasteKeystroke final : public PasteKeystroke {
public:
    // Whether a part of this desktop's does what the portal is asked for: by the files that
    // describe such parts, since to ask the portal itself may mean to wait for its start.
    static bool offered();

    // All outlive this.
    PortalPasteKeystroke(WaylandConnection& connection, const SessionState& state,
        EventClock& clock, SettingsStore& settings);

    // There already.
    Eventual<std::monostate> keysReleased() override;
    // Of a grabbed keyboard nothing is known.
    std::optional<std::string> keyboardTaken() const override;
    // "event_failed" too if the user was asked: by now another field may have the focus.
    Eventual<std::optional<std::string>> send(const FieldElement& element) override;

private:
    using Obstacle = std::optional<std::string>;

    Task<> run(std::vector<KeyStep> steps, Eventual<Obstacle> answer);
    Task<bool> open();
    Task<bool> type(std::vector<KeyStep> steps);
    void close();

    const SessionState& m_state;
    EventClock& m_clock;
    SettingsStore& m_settings;
    PortalRequests m_requests;
    std::optional<PasteKeys> m_keys;
    UsersKeymap m_usersKeymap;
    std::optional<QDBusObjectPath> m_session;
    bool m_busy = false;
    Timer m_pause;
    TaskScope m_tasks;
};

} // namespace vesko
