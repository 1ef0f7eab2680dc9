#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace vesko {

// What programs that we didn't write make of an audio file. Each throws std::runtime_error when
// they can't read it.
namespace audiofile {

// ffprobe's word on the only stream and its container: codec_name, sample_rate, duration and so on.
std::map<std::string, std::string> describe(const std::filesystem::path& file);
// The names of its outermost MPEG-4 boxes, each with a blank behind it.
std::string boxes(const std::filesystem::path& file);
// Its sound, 44.1 kHz mono.
std::vector<std::int16_t> decode(const std::filesystem::path& file);

} // namespace audiofile

double seconds(const std::vector<std::int16_t>& sound);
// From its upward zero crossings; 0 for silence.
double frequency(const std::vector<std::int16_t>& sound);
double decibels(const std::vector<std::int16_t>& sound);
// The part between two times.
std::vector<std::int16_t> part(const std::vector<std::int16_t>& sound, double from, double to);

} // namespace vesko
