#include "VeskoApp/shell/AudioGlyph.h"

#include <cmath>

namespace vesko {

bool AudioGlyph::showsBars(double level, bool recording)
{
    return recording && level > audibleLevel;
}

std::array<double, 5> AudioGlyph::bars(double level, double time, bool reduceMotion)
{
    std::array<double, 5> heights{};
    double phase = 0;
    for (double& height : heights) {
        height = level * (reduceMotion ? 0.65 : std::sin(time * 8 + phase) * 0.4 + 0.6);
        phase += 0.9;
    }
    return heights;
}

std::array<double, 3> AudioGlyph::dots(double time, bool reduceMotion)
{
    std::array<double, 3> opacities{};
    double phase = 0;
    for (double& opacity : opacities) {
        opacity = reduceMotion ? 0.8 : (std::sin(time * 3 + phase) * 0.5 + 0.5) * 0.55 + 0.35;
        phase -= 0.8;
    }
    return opacities;
}

} // namespace vesko
