#include "VeskoApp/capture/CaptureCues.h"

#include <utility>

namespace vesko {

namespace {

constexpr auto startSample = "CaptureStart";
constexpr auto stopSample = "CaptureStop";
constexpr double loudness = 0.35;
constexpr double held = 0.075; // seconds before the fade
constexpr int fadeSteps = 10;
constexpr double fadeStep = 0.009; // seconds

// Full for a moment, then down to silence in ten equal steps: a click, however long the sample is.
std::vector<CueVolume> envelope()
{
    std::vector<CueVolume> volumes{ { .from = 0, .volume = loudness } };
    for (int step = 0; step < fadeSteps; ++step)
        volumes.push_back({ .from = held + fadeStep * step,
            .volume = loudness * (fadeSteps - 1 - step) / fadeSteps });
    return volumes;
}

CueSound sound(CaptureCues::Cue cue)
{
    const bool starts = cue == CaptureCues::Cue::start;
    return {
        .sample = starts ? startSample : stopSample,
        .highPass = starts ? 350.0 : 550.0,
        .pitch = starts ? 100.0 : 400.0,
        .envelope = envelope(),
        .length = held + fadeStep * fadeSteps,
    };
}

} // namespace

CaptureCues::CaptureCues(CueEngine& engine)
    : m_engine(engine)
{
}

void CaptureCues::prepare()
{
    if (!std::exchange(m_prepared, true))
        m_engine.load({ startSample, stopSample });
}

void CaptureCues::play(Cue cue)
{
    prepare();
    m_engine.play(sound(cue));
}

} // namespace vesko
