#pragma once

#include <cstdint>
#include <string>

namespace vesko {

// What the user's session lets a program do at all, found out at the start. Nothing in it changes
// while the program runs.
struct SessionOffer {
    enum class Kind : std::uint8_t { x11, wayland };
    // How a press of a shortcut reaches the program: it takes the keys itself, or the user has the
    // desktop run a command of it.
    enum class Shortcut : std::uint8_t { own, command };

    Kind kind = Kind::x11;
    std::string desktop; // as it calls itself to the user, such as "sway"; empty if it doesn't
    Shortcut shortcut = Shortcut::own;
    // What can be put into the desktop's configuration for that, line by line; empty if there is
    // none that takes such lines.
    std::string shortcutLines;
    bool keepsShortcuts = false; // the desktop, whose settings the program can add one to
    bool allKeys = true; // keys other than the shortcut are seen, Return among them
    bool floats = true; // a window can stay above others and leave the focus where it is
    bool copies = true; // text can be copied while another program is in use
    bool pastes = true; // a paste shortcut can be typed into other programs
    bool asksToPaste = false; // the desktop may ask the user about that

    // A key can be told to dictate as long as it is held: one that is seen, or one whose press and
    // release the desktop is configured to pass on.
    bool hasGesture() const { return allKeys || !shortcutLines.empty(); }
};

} // namespace vesko
