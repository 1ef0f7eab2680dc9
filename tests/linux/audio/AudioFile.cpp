#include "tests/linux/audio/AudioFile.h"

#include "tests/linux/audio/Child.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vesko {

std::map<std::string, std::string> audiofile::describe(const std::filesystem::path& file)
{
    std::istringstream output(Child::run({ "ffprobe", "-v", "error", "-show_entries",
        "stream=codec_name,profile,sample_rate,channels,bit_rate:format=format_name,duration",
        "-of", "default=noprint_wrappers=1", file.string() }));
    std::map<std::string, std::string> result;
    for (std::string line; std::getline(output, line);)
        if (const auto sign = line.find('='); sign != std::string::npos)
            result[line.substr(0, sign)] = line.substr(sign + 1);
    return result;
}

std::string audiofile::boxes(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::string names;
    for (unsigned char head[8]; in.read(reinterpret_cast<char*>(head), sizeof(head));) {
        const unsigned size = head[0] << 24U | head[1] << 16U | head[2] << 8U | head[3];
        if (size < sizeof(head))
            throw std::runtime_error("No ordinary box");
        names += std::string(head + 4, head + 8) + ' ';
        in.seekg(size - sizeof(head), std::ios::cur);
    }
    return names;
}

std::vector<std::int16_t> audiofile::decode(const std::filesystem::path& file)
{
    const std::string bytes = Child::run({ "ffmpeg", "-v", "error", "-nostdin", "-i", file.string(),
        "-f", "s16le", "-ar", "44100", "-ac", "1", "-" });
    std::vector<std::int16_t> sound(bytes.size() / sizeof(std::int16_t));
    std::memcpy(sound.data(), bytes.data(), sound.size() * sizeof(std::int16_t));
    return sound;
}

double seconds(const std::vector<std::int16_t>& sound)
{
    return static_cast<double>(sound.size()) / 44100;
}

double frequency(const std::vector<std::int16_t>& sound)
{
    long first = -1;
    long last = -1;
    int crossings = 0;
    for (std::size_t i = 1; i < sound.size(); ++i) {
        if (sound[i - 1] < 0 && sound[i] >= 0) {
            last = static_cast<long>(i);
            if (first < 0)
                first = last;
            else
                ++crossings;
        }
    }
    return crossings ? crossings * 44100.0 / static_cast<double>(last - first) : 0;
}

double decibels(const std::vector<std::int16_t>& sound)
{
    double sum = 0;
    for (const double sample : sound)
        sum += sample * sample;
    return sound.empty() || sum == 0
        ? -160
        : 10 * std::log10(sum / static_cast<double>(sound.size()) / 32768 / 32768);
}

std::vector<std::int16_t> part(const std::vector<std::int16_t>& sound, double from, double to)
{
    const auto at = [&](double time) {
        return sound.begin()
            + std::clamp<long>(std::lround(time * 44100), 0, static_cast<long>(sound.size()));
    };
    return { at(from), at(to) };
}

} // namespace vesko
