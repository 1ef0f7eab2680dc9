#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/AudioPlayer.h"

#include <memory>
#include <stop_token>

namespace vesko {

class Playback;

// Plays recordings, AAC in m4a, through GStreamer to the sound server's default output. Nothing
// but these formats is ever parsed, whatever a file contains. A sound that has ended keeps the
// output until stop().
class GstPlayer final : public AudioPlayer {
public:
    GstPlayer();
    ~GstPlayer() override;

    Task<double> play(std::filesystem::path file) override;
    void seek(double seconds, double rate) override;
    void stop() override;
    Task<std::vector<float>> wave(std::filesystem::path file, std::size_t parts) override;

private:
    Task<> end();
    Task<> go(double seconds, double rate);

    std::unique_ptr<Playback> m_playback; // the worker's
    std::stop_source m_stop; // of the latest play
    std::stop_source m_waveStop; // of the latest wave
    Worker m_worker;
    Worker m_drawing;
    TaskScope m_tasks;
};

} // namespace vesko
