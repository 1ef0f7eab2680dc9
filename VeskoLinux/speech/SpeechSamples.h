#pragma once

#include "VeskoLinux/media/RecordingSound.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace vesko {

inline constexpr int speechRate = soundRate; // samples a second

// The whole sound of a recording, as decodeRecording gives it; a stop request ends it with what has
// come so far.
std::vector<std::int16_t> speechSamples(
    const std::filesystem::path& audio, const std::stop_token& stop);

// The sound cut into pieces of at most so many seconds, and at least five parts in twelve of that,
// each cut at the quietest moment there, so that hardly any word is cut in two and each piece is
// soon done with. Sound that is shorter stays whole; no sound is no piece.
std::vector<std::span<const std::int16_t>> speechPieces(
    std::span<const std::int16_t> samples, int longest = 12);

// The length of the first of these pieces of sound that goes on; nothing while that depends on what
// comes.
std::optional<std::size_t> firstSpeechPiece(std::span<const std::int16_t> samples, int longest);

} // namespace vesko
