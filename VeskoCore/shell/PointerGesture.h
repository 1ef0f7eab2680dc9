#pragma once

namespace vesko {

// Tells a click from a drag, from where the pointer is on the screen while its button is down. Once
// a drag, always a drag: coming back to the start makes no click. Pure.
struct PointerGesture {
    static constexpr double dragThreshold = 4; // points, which are not yet a drag

    double startX = 0; // where the button went down
    double startY = 0;
    bool isDrag = false;

    // The pointer is there now; whether this is a drag.
    bool move(double x, double y);
};

} // namespace vesko
