#pragma once

#include "VeskoApp/platform/AudioRecorder.h"

#include <functional>
#include <string>

namespace vesko {

// The microphone as a capture sees it: the recorder, with its failures in the user's words.
class AudioCapture {
public:
    explicit AudioCapture(AudioRecorder& recorder);
    ~AudioCapture();

    void prepare() { m_recorder.prepare(); }
    Task<bool> requestMicrophone() { return m_recorder.requestAccess(); }
    // Takes in sound from now on; start says where it goes.
    void open() { m_recorder.open(); }
    void setListener(std::shared_ptr<SoundListener> listener)
    {
        m_recorder.setListener(std::move(listener));
    }
    // Throws CaptureFailure.
    Task<> start(std::filesystem::path file);
    // The recorded seconds, but for what is under way; 0 when nothing was being recorded.
    double stop() { return m_recorder.stop(); }
    // Comes when the file of the last stop is whole: the seconds that it holds.
    Eventual<double> finished() { return m_recorder.finished(); }
    double currentTime() const { return m_recorder.currentTime(); }
    double averagePower() const { return m_recorder.averagePower(); }

    // A recording ended by itself; its message is a key for the catalogues.
    std::function<void(std::string)> onFailure;
    // No sound comes, or it comes again.
    std::function<void(bool stalled)> onStalled;

private:
    AudioRecorder& m_recorder;
};

} // namespace vesko
