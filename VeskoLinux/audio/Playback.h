#pragma once

#include <condition_variable>
#include <filesystem>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>

using GstElement = struct _GstElement;
using GstMessage = struct _GstMessage;

namespace vesko {

// One file that is being played, from construction to destruction, on GStreamer's threads. Both
// may wait for the sound server or the disk: a worker's business.
class Playback {
public:
    // Returns when the file is being played. Throws std::runtime_error when it can't be, also after
    // some seconds or when it is to stop.
    Playback(const std::filesystem::path& file, const std::stop_token& stop);
    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;

    double seconds() const { return m_seconds; }
    // Goes on from there, so many times as fast, at the same pitch; also behind the end.
    void seek(double seconds, double rate);

private:
    struct Close {
        void operator()(GstElement* pipeline) const;
    };

    void note(GstMessage* message);

    double m_seconds = 0;
    std::mutex m_mutex; // for what follows
    std::condition_variable_any m_noted;
    bool m_ready = false;
    std::string m_failure;

    std::unique_ptr<GstElement, Close> m_pipeline; // ends before what its threads use
};

} // namespace vesko
