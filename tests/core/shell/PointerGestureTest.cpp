#include "VeskoCore/shell/PointerGesture.h"

#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

TEST(PointerGesture, IsADragBeyondFourPointsAndThenForGood)
{
    struct Point {
        double x;
        double y;
    };
    const struct {
        const char* what;
        std::vector<Point> moves;
        bool drag;
    } rows[] = {
        { "no move", {}, false },
        { "three points", { { 103, 50 } }, false },
        { "exactly four points", { { 100, 54 } }, false },
        { "a little more than four", { { 100, 54.001 } }, true },
        { "five points", { { 95, 50 } }, true },
        { "five points aslant", { { 103, 54 } }, true },
        { "three one way and three the other", { { 103, 50 }, { 97, 50 } }, false },
        { "out and back to the start", { { 110, 50 }, { 100, 50 } }, true },
    };
    for (const auto& row : rows) {
        PointerGesture gesture{ .startX = 100, .startY = 50 };
        bool told = false;
        for (const auto& point : row.moves)
            told = gesture.move(point.x, point.y);
        EXPECT_EQ(gesture.isDrag, row.drag) << row.what;
        EXPECT_EQ(told, row.drag) << row.what;
    }
}

} // namespace
} // namespace vesko
