#pragma once

#include <cstdint>
#include <span>

namespace vesko {

// Whether somebody may have spoken in the sound, at speechRate. No for silence, steady noise and
// the tone at the start only: typing, breath and music pass, so that no word is lost, however short
// or low. Yes where the detector isn't installed. Blocks.
bool mayHoldSpeech(std::span<const std::int16_t> samples);

} // namespace vesko
