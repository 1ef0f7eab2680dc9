#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vesko {

// Makes recordings as the recorder does, AAC in m4a, by programs that we didn't write.
namespace voice {

// Both are recognised word by word when spoken by this voice.
inline const std::string brother = "my brother lives in a small house near the river";
inline const std::string coffee = "i would like to order a large coffee and a small sandwich";

// The sentences one after the other, with so many seconds of silence before and behind each.
void speak(const std::vector<std::string>& sentences, const std::filesystem::path& file,
    double margin = 0.3);
void keepSilent(int seconds, const std::filesystem::path& file);
// The recording again and again, so many seconds of it.
void repeat(const std::filesystem::path& recording, int seconds, const std::filesystem::path& file);
// Whatever ffmpeg makes of these arguments.
void convert(const std::vector<std::string>& arguments, const std::filesystem::path& file);

} // namespace voice

} // namespace vesko
