#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoApp/platform/SessionState.h"
#include "VeskoLinux/wayland/PasteKeys.h"
#include "VeskoLinux/wayland/UsersKeymap.h"
#include "VeskoLinux/wayland/WaylandConnection.h"

#include <optional>
#include <string>
#include <vector>

struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace vesko {

// Pastes by a keyboard of its own beside the user's, which is plugged in once and stays: each one
// that comes or goes takes the focus from the field for a moment. It has the map of the user's
// keyboard, so that no program is told another one; what the user holds on theirs does not mix with
// what is typed on this one. The compositor tells nobody which window has the keyboard, nor what
// holds it. Main thread.
class VirtualKeyboardPaste final : public PasteKeystroke {
public:
    static bool offered(const WaylandConnection& connection);
    // Both outlive this.
    VirtualKeyboardPaste(WaylandConnection& connection, const SessionState& session);
    ~VirtualKeyboardPaste() override;

    // There already.
    Eventual<std::monostate> keysReleased() override;
    // Of a grabbed keyboard nothing is known.
    std::optional<std::string> keyboardTaken() const override;
    // "event_failed" too while the user has no keyboard.
    Eventual<std::optional<std::string>> send(const FieldElement& element) override;

private:
    Task<> type(std::vector<KeyStep> steps, Eventual<std::optional<std::string>> answer);
    void plugIn(const std::string& map);

    WaylandConnection& m_connection;
    const SessionState& m_session;
    zwp_virtual_keyboard_manager_v1* m_manager;
    zwp_virtual_keyboard_v1* m_keyboard = nullptr;
    std::optional<PasteKeys> m_keys; // of m_keyboard
    UsersKeymap m_usersKeymap;
    TaskScope m_tasks;
};

} // namespace vesko
