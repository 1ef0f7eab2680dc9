#include "VeskoLinux/wayland/PasteKeys.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace vesko {

namespace {

constexpr std::uint32_t kernelOffset = 8; // a key's number in XKB less its number in the kernel

using Context = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;

// It would print the lines of a damaged map.
Context quietContext()
{
    Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    return context;
}

struct Letter {
    std::uint32_t key, layout;
};

std::optional<Letter> letterKey(xkb_keymap* map, xkb_keysym_t wanted)
{
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(map); ++layout) {
        const auto last = xkb_keymap_max_keycode(map);
        for (auto key = xkb_keymap_min_keycode(map); key <= last; ++key) {
            const xkb_keysym_t* symbols = nullptr;
            if (xkb_keymap_key_get_syms_by_level(map, key, layout, 0, &symbols) == 1
                && *symbols == wanted)
                return Letter{ key, layout };
        }
    }
    return std::nullopt;
}

} // namespace

void PasteKeys::Release::operator()(xkb_keymap* map) const
{
    xkb_keymap_unref(map);
}

PasteKeys::PasteKeys(std::string_view map)
{
    const auto context = quietContext();
    m_map.reset(xkb_keymap_new_from_buffer(context.get(), map.data(), map.size(),
        XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::string PasteKeys::usualMap()
{
    const auto context = quietContext();
    const std::unique_ptr<xkb_keymap, Release> map(
        xkb_keymap_new_from_names(context.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS));
    const std::unique_ptr<char, decltype(&std::free)> text(
        map ? xkb_keymap_get_as_string(map.get(), XKB_KEYMAP_FORMAT_TEXT_V1) : nullptr, &std::free);
    return text ? text.get() : std::string();
}

std::vector<KeyStep> PasteKeys::steps(bool terminal) const
{
    if (!m_map)
        return {};
    struct Held {
        std::uint32_t key, modifiers;
    };
    std::vector<Held> holding;
    const auto letter = letterKey(m_map.get(), XKB_KEY_v);
    const std::uint32_t struck = letter ? letter->key : named("INS");
    const std::uint32_t layout = letter ? letter->layout : 0;
    if (letter)
        holding.push_back({ named("LCTL"), held(XKB_MOD_NAME_CTRL) });
    if (terminal || !letter)
        holding.push_back({ named("LFSH"), held(XKB_MOD_NAME_SHIFT) });
    const auto lacking = [](const Held& one) { return one.key == 0 || one.modifiers == 0; };
    if (struck == 0 || std::ranges::any_of(holding, lacking))
        return {};

    std::vector<KeyStep> steps;
    std::uint32_t modifiers = 0;
    for (const Held& one : holding)
        steps.push_back({ one.key - kernelOffset, true, modifiers |= one.modifiers, layout });
    steps.push_back({ struck - kernelOffset, true, modifiers, layout });
    steps.push_back({ struck - kernelOffset, false, modifiers, layout });
    for (auto one = holding.rbegin(); one != holding.rend(); ++one)
        steps.push_back({ one->key - kernelOffset, false, modifiers &= ~one->modifiers, layout });
    steps.back().layout = 0;
    return steps;
}

// 0 if there is none.
std::uint32_t PasteKeys::named(const char* name) const
{
    const auto key = xkb_keymap_key_by_name(m_map.get(), name);
    return key == XKB_KEYCODE_INVALID || key < kernelOffset ? 0 : key;
}

std::uint32_t PasteKeys::held(const char* modifier) const
{
    const auto index = xkb_keymap_mod_get_index(m_map.get(), modifier);
    return index < 32 ? 1U << index : 0;
}

} // namespace vesko
