#pragma once

#include "VeskoApp/platform/AudioPlayer.h"
#include "tests/fakes/Gate.h"

#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vesko {

// Loudspeakers that remember what they were given. As the real ones, it can't play what isn't
// there, and a stop also ends a start that is under way.
class FakeAudioPlayer final : public AudioPlayer {
public:
    double length = 3; // seconds
    Gate starting;

    std::vector<std::filesystem::path> played;
    std::optional<std::filesystem::path> playing;
    std::vector<std::pair<double, double>> sought; // seconds and rate
    std::vector<std::filesystem::path> drawn;

    Task<double> play(std::filesystem::path file) override
    {
        const int request = ++m_request;
        co_await starting.pass();
        if (!std::filesystem::exists(file))
            throw std::runtime_error("no such file");
        if (request == m_request) {
            played.push_back(file);
            playing = file;
        }
        co_return length;
    }
    void seek(double seconds, double rate) override { sought.emplace_back(seconds, rate); }
    void stop() override
    {
        ++m_request;
        playing.reset();
    }
    Task<std::vector<float>> wave(std::filesystem::path file, std::size_t parts) override
    {
        if (!std::filesystem::exists(file))
            throw std::runtime_error("no such file");
        drawn.push_back(file);
        co_return std::vector<float>(parts, 0.5F);
    }

private:
    int m_request = 0;
};

} // namespace vesko
