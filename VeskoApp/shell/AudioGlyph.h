#pragma once

#include <array>

namespace vesko {

// The live mark in the floating control: five bars that follow the voice, and three dots while
// there is none. Time is in seconds of any clock. Pure.
struct AudioGlyph {
    static constexpr double audibleLevel = 0.16; // a level of this much is still silence

    static bool showsBars(double level, bool recording);
    // The heights of the bars, as shares of the glyph's height without its least three points.
    static std::array<double, 5> bars(double level, double time, bool reduceMotion);
    // How opaque the dots are.
    static std::array<double, 3> dots(double time, bool reduceMotion);
};

} // namespace vesko
