#pragma once

#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoLinux/wayland/PasteKeys.h"
#include "VeskoLinux/wayland/UsersKeymap.h"
#include "VeskoLinux/wayland/WaylandConnection.h"

#include <optional>
#include <string>

struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace vesko {

// Pastes by a keyboard of its own beside the user's, which is plugged in once and stays: each one
// that comes or goes takes the focus from the field for a moment. It has the map of the user's
// keyboard, so that no program is told another one; what the user holds on theirs does not mix with
// what is typed on this one. Main thread.
class VirtualKeyboardPaste final : public PasteKeystroke {
public:
    static bool offered(const WaylandConnection& connection);
    // The connection outlives this.
    explicit VirtualKeyboardPaste(WaylandConnection& connection);
    ~VirtualKeyboardPaste() override;

    // There already.
    Eventual<std::monostate> keysReleased() override;
    // False too while the user has no keyboard.
    Eventual<bool> send(const FieldElement& element) override;

private:
    void plugIn(const std::string& map);

    WaylandConnection& m_connection;
    zwp_virtual_keyboard_manager_v1* m_manager;
    zwp_virtual_keyboard_v1* m_keyboard = nullptr;
    std::optional<PasteKeys> m_keys; // of m_keyboard
    UsersKeymap m_usersKeymap;
};

} // namespace vesko
