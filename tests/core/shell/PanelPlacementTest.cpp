#include "VeskoCore/shell/PanelPlacement.h"

#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

TEST(PanelPlacement, RestoresWhereAScreenHoldsTheWindowWhole)
{
    const ScreenSize size{ 240, 236 };
    const ScreenArea left{ { 0, 0 }, { 1280, 800 } };
    const ScreenArea right{ { 1280, 0 }, { 1920, 1080 } };
    const ScreenArea above{ { 0, -600 }, { 1280, 600 } };
    using Screens = std::vector<ScreenArea>;
    using Point = std::optional<ScreenPoint>;
    const struct {
        const char* what;
        Point saved;
        Screens screens;
        bool restored;
    } rows[] = {
        { "nothing saved", {}, { left }, false },
        { "no screen", Point{ { 10, 10 } }, {}, false },
        { "in the middle", Point{ { 500, 300 } }, { left }, true },
        { "in the first corner", Point{ { 0, 0 } }, { left }, true },
        { "in the last corner", Point{ { 1040, 564 } }, { left }, true },
        { "a point over the right edge", Point{ { 1041, 300 } }, { left }, false },
        { "a point over the lower edge", Point{ { 500, 565 } }, { left }, false },
        { "a point over the left edge", Point{ { -1, 300 } }, { left }, false },
        { "a point over the upper edge", Point{ { 500, -1 } }, { left }, false },
        { "on the second screen", Point{ { 2000, 700 } }, { left, right }, true },
        { "on a screen above", Point{ { 20, -590 } }, { left, above }, true },
        { "on a screen that is gone", Point{ { 2000, 700 } }, { left }, false },
        { "across two screens", Point{ { 1200, 300 } }, { left, right }, false },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PanelPlacement::restore(row.saved, size, row.screens),
            row.restored ? row.saved : std::nullopt)
            << row.what;
    }
}

} // namespace
} // namespace vesko
