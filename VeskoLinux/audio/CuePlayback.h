#pragma once

#include "VeskoApp/platform/CueEngine.h"

#include <stop_token>
#include <string>

namespace vesko {

// Plays a cue on GStreamer's threads and returns when it has been heard, or at once when it is to
// stop. Throws std::runtime_error when it can't be played. `wav` is what the sample's file holds.
// Waits for the sound server: a worker's business.
void playCue(const std::string& wav, const CueSound& sound, const std::stop_token& stop);

// Loads what playCue needs, so that the first cue doesn't wait for the disk.
void loadCueParts();

} // namespace vesko
