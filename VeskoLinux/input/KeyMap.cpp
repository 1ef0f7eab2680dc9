#include "VeskoLinux/input/KeyMap.h"

#include "VeskoLinux/input/X11Connection.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <string>

namespace vesko {

namespace {

// The X server's bits of the real modifiers.
constexpr std::uint32_t shiftBit = 1 << 0, lockBit = 1 << 1, controlBit = 1 << 2, mod1Bit = 1 << 3,
                        mod4Bit = 1 << 6, mod5Bit = 1 << 7;
constexpr std::uint32_t combiningBits = shiftBit | controlBit | mod1Bit | mod4Bit | mod5Bit;
constexpr std::uint32_t realBits = 0xFF;
constexpr std::uint32_t numLockSymbol = 0xFF7F, scrollLockSymbol = 0xFF14;
constexpr std::size_t keyCount = 256;

struct ReleaseContext {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};
struct ReleaseState {
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

std::uint32_t modifiersOf(xkb_keymap* map, KeyCode key)
{
    const std::unique_ptr<xkb_state, ReleaseState> state(xkb_state_new(map));
    xkb_state_update_key(state.get(), key, XKB_KEY_DOWN);
    return xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_EFFECTIVE) & realBits;
}

} // namespace

void KeyMap::Release::operator()(xkb_keymap* map) const
{
    xkb_keymap_unref(map);
}

KeyMap::KeyMap(const X11Connection& connection)
    : m_modifiers(keyCount)
{
    if (!connection.works())
        return;
    xkb_x11_setup_xkb_extension(connection, XKB_X11_MIN_MAJOR_XKB_VERSION,
        XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr,
        nullptr, nullptr);
    const std::unique_ptr<xkb_context, ReleaseContext> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const auto device = xkb_x11_get_core_keyboard_device_id(connection);
    if (!context || device < 0)
        return;
    m_map.reset(xkb_x11_keymap_new_from_device(
        context.get(), connection, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!m_map)
        return;
    const auto last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(m_map.get()), keyCount - 1);
    for (auto key = xkb_keymap_min_keycode(m_map.get()); key <= last; ++key)
        m_modifiers[key] = modifiersOf(m_map.get(), static_cast<KeyCode>(key));
}

KeyCode KeyMap::named(std::string_view name) const
{
    if (!m_map)
        return 0;
    const auto key = xkb_keymap_key_by_name(m_map.get(), std::string(name).c_str());
    return key < keyCount ? static_cast<KeyCode>(key) : KeyCode{ 0 };
}

std::string KeyMap::place(KeyCode key) const
{
    const char* const place = m_map ? xkb_keymap_key_get_name(m_map.get(), key) : nullptr;
    return place ? place : "";
}

std::string KeyMap::name(KeyCode key) const
{
    const xkb_keysym_t* symbols = nullptr;
    if (!m_map || xkb_keymap_key_get_syms_by_level(m_map.get(), key, 0, 0, &symbols) != 1)
        return {};
    const auto letter = xkb_keysym_to_utf32(xkb_keysym_to_upper(*symbols));
    constexpr std::uint32_t lastBlank = 0x20, deleted = 0x7F;
    if (letter <= lastBlank || letter == deleted)
        return {};
    std::array<char, 8> text{};
    xkb_keysym_to_utf8(xkb_keysym_to_upper(*symbols), text.data(), text.size());
    return text.data();
}

KeyCode KeyMap::giving(std::uint32_t symbol, std::uint32_t layout) const
{
    if (!m_map)
        return 0;
    const auto last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(m_map.get()), keyCount - 1);
    for (auto key = xkb_keymap_min_keycode(m_map.get()); key <= last; ++key) {
        const xkb_keysym_t* symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(m_map.get(), key, layout, 0, &symbols) == 1
            && *symbols == symbol)
            return static_cast<KeyCode>(key);
    }
    return 0;
}

KeyCode KeyMap::giving(std::uint32_t symbol) const
{
    const auto layouts = m_map ? xkb_keymap_num_layouts(m_map.get()) : 0;
    for (xkb_layout_index_t layout = 0; layout < layouts; ++layout)
        if (const KeyCode key = giving(symbol, layout))
            return key;
    return 0;
}

std::uint32_t KeyMap::modifiers(KeyCode key) const
{
    return m_modifiers.empty() ? 0 : m_modifiers[key];
}

std::uint32_t KeyMap::locks() const
{
    const auto own = modifiers(giving(numLockSymbol)) | modifiers(giving(scrollLockSymbol));
    return lockBit | (own & ~combiningBits);
}

bool KeyMap::isModifier(KeyCode key) const
{
    return modifiers(key) != 0;
}

bool KeyMap::isShift(KeyCode key) const
{
    return (modifiers(key) & shiftBit) != 0;
}

bool KeyMap::makesCombination(KeyCode key) const
{
    return (modifiers(key) & combiningBits) != 0;
}

} // namespace vesko
