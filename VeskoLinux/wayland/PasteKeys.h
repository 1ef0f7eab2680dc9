#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct xkb_keymap;

namespace vesko {

// One change of a key, with what the keyboard's state is afterwards.
struct KeyStep {
    std::uint32_t key = 0; // as the kernel numbers keys
    bool down = false;
    std::uint32_t modifiers = 0; // held ones, as the map numbers them
    std::uint32_t layout = 0; // in use

    bool operator==(const KeyStep&) const = default;
};

// What a keyboard with a certain map has to do to paste.
class PasteKeys {
public:
    // The map in the text form of XKB. Knows no keys if it is damaged.
    explicit PasteKeys(std::string_view map);

    // The map of the layout that this machine's keyboards have unless the user says otherwise.
    static std::string usualMap();

    // Ctrl+V, or Ctrl+Shift+V into a terminal, by the key that has the Latin letter in any of the
    // layouts, under that layout; Shift+Insert if none has it. Leaves nothing held, and the first
    // layout in use. Empty if the keyboard has no such keys.
    std::vector<KeyStep> steps(bool terminal) const;

private:
    struct Release {
        void operator()(xkb_keymap* map) const;
    };
    std::uint32_t named(const char* name) const;
    std::uint32_t held(const char* modifier) const;

    std::unique_ptr<xkb_keymap, Release> m_map;
};

} // namespace vesko
