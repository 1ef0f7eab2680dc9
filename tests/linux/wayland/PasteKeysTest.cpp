#include "VeskoLinux/wayland/PasteKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdlib>
#include <memory>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Keys as the kernel numbers them, modifiers as each of these maps does.
constexpr std::uint32_t control = 29, shift = 42, v = 47, v2 = 52 /* Dvorak's */, insert = 110;
constexpr std::uint32_t withShift = 1, withControl = 4;

std::string mapOf(const char* layouts, const char* variants = nullptr)
{
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    const xkb_rule_names names{ "evdev", "pc105", layouts, variants, nullptr };
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> map(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
        &xkb_keymap_unref);
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(map.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    return text.get();
}

std::vector<KeyStep> controlWith(std::uint32_t key, std::uint32_t layout)
{
    return {
        { control, true, withControl, layout },
        { key, true, withControl, layout },
        { key, false, withControl, layout },
        { control, false, 0, 0 },
    };
}

TEST(PasteKeys, strikeTheLatinLetterWhereverItIs)
{
    EXPECT_EQ(PasteKeys(mapOf("us")).steps(false), controlWith(v, 0));
    EXPECT_EQ(PasteKeys(mapOf("us", "dvorak")).steps(false), controlWith(v2, 0));
    EXPECT_EQ(PasteKeys(mapOf("ru,us")).steps(false), controlWith(v, 1));
    EXPECT_EQ(PasteKeys(mapOf("gr,ru,us")).steps(false), controlWith(v, 2));
}

TEST(PasteKeys, holdShiftTooForATerminal)
{
    EXPECT_THAT(PasteKeys(mapOf("us")).steps(true),
        ElementsAre(KeyStep{ control, true, withControl, 0 },
            KeyStep{ shift, true, withControl | withShift, 0 },
            KeyStep{ v, true, withControl | withShift, 0 },
            KeyStep{ v, false, withControl | withShift, 0 },
            KeyStep{ shift, false, withControl, 0 }, KeyStep{ control, false, 0, 0 }));
}

TEST(PasteKeys, areShiftAndInsertWithoutALatinLayout)
{
    for (const bool terminal : { false, true })
        EXPECT_THAT(PasteKeys(mapOf("ru")).steps(terminal),
            ElementsAre(KeyStep{ shift, true, withShift, 0 }, KeyStep{ insert, true, withShift, 0 },
                KeyStep{ insert, false, withShift, 0 }, KeyStep{ shift, false, 0, 0 }));
}

TEST(PasteKeys, areNoneOfAMapThatIsNone)
{
    const std::string map = mapOf("us");
    for (const std::string& damaged :
        { std::string(), std::string("xkb_keymap {"), map.substr(0, map.size() / 2) })
        EXPECT_THAT(PasteKeys(damaged).steps(false), IsEmpty());
}

TEST(PasteKeys, areKnownOfTheUsualMap)
{
    EXPECT_EQ(PasteKeys(PasteKeys::usualMap()).steps(false), controlWith(v, 0));
}

} // namespace
} // namespace vesko
