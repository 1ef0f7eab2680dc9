#include "VeskoCore/shell/StatusIconPlacement.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(StatusIconPlacement, TheIconIsHiddenUnderTheNotchOrWhenItsWindowIs)
{
    const std::optional<StatusIconPlacement::Span> none;
    const std::optional<StatusIconPlacement::Span> notch = { { .lower = 100, .upper = 200 } };
    const struct {
        const char* what;
        double minX;
        double maxX;
        std::optional<StatusIconPlacement::Span> notch;
        bool visible;
        bool hidden;
    } rows[] = {
        { "visible, no notch", 120, 140, none, true, false },
        { "not visible, no notch", 120, 140, none, false, true },
        { "not visible, far from the notch", 300, 320, notch, false, true },
        { "left of the notch", 20, 40, notch, true, false },
        { "right of the notch", 220, 240, notch, true, false },
        { "right edge touches the notch", 80, 100, notch, true, false },
        { "left edge touches the notch", 200, 220, notch, true, false },
        { "reaches under the notch from the left", 80, 100.5, notch, true, true },
        { "reaches under the notch from the right", 199.5, 220, notch, true, true },
        { "wholly under the notch", 140, 160, notch, true, true },
        { "wider than the notch", 90, 210, notch, true, true },
        { "exactly the notch", 100, 200, notch, true, true },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(
            StatusIconPlacement::iconHidden(row.minX, row.maxX, row.notch, row.visible), row.hidden)
            << row.what;
    }
}

} // namespace
} // namespace vesko
