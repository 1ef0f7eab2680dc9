#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct xkb_keymap;

namespace vesko {

class X11Connection;

using KeyCode = std::uint8_t; // of the X server; 0 is no key

// What the keys of the keyboard are, whatever their places and the layout in use. A copy of the
// server's map at one time; empty if the server could not be asked.
class KeyMap {
public:
    KeyMap() = default;
    // Takes several round trips to the server.
    explicit KeyMap(const X11Connection& connection);

    // The key at a place of the keyboard by its XKB name, such as "RCTL"; 0 if there is none.
    KeyCode named(std::string_view name) const;
    // What the key at this number is called by its place; empty if there is none.
    std::string place(KeyCode key) const;
    // What it types by itself in the first layout, as a capital letter; empty if nothing.
    std::string name(KeyCode key) const;
    // The first key that gives this symbol unshifted in the layout with this index.
    KeyCode giving(std::uint32_t symbol, std::uint32_t layout) const;
    // The same in any layout.
    KeyCode giving(std::uint32_t symbol) const;

    // The server's bits of the real modifiers that a key sets while it is held, or locks.
    std::uint32_t modifiers(KeyCode key) const;
    // Those of Caps Lock, Num Lock and Scroll Lock, which are part of no shortcut.
    std::uint32_t locks() const;
    // A key that changes what others mean while it is held, or locks such a change.
    bool isModifier(KeyCode key) const;
    bool isShift(KeyCode key) const;
    // Shift, Control, Alt, Super or the third level: what makes a combination of a key.
    bool makesCombination(KeyCode key) const;

private:
    struct Release {
        void operator()(xkb_keymap* map) const;
    };

    // The real modifiers that each key sets while it is held.
    std::vector<std::uint32_t> m_modifiers;
    std::unique_ptr<xkb_keymap, Release> m_map;
};

} // namespace vesko
