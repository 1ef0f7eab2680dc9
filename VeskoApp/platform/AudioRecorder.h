#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/Task.h"
#include "VeskoApp/platform/SoundListener.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace vesko {

enum class RecorderFailure { stoppedUnexpectedly, encoding };

// Records the default microphone into a file: AAC, 96 kbit/s, mono, 44.1 kHz, in an m4a container
// with the permissions 0600 from its first byte. A process that dies in the middle leaves a file
// that plays up to about its last second. One recording at a time; main thread only, and no call
// makes it wait.
class AudioRecorder {
public:
    virtual ~AudioRecorder() = default;

    // Puts together what the first open takes, which then comes sooner to its sound.
    virtual void prepare() = 0;

    // Whether the user lets this program use a microphone; may ask the user, once.
    virtual Task<bool> requestAccess() = 0;

    // Opens the microphone and holds what it hears in memory, until start says where it belongs:
    // the first words are spoken while the library still makes room for them. Its failure is told
    // by start. What is held is bounded; a program that never comes to start must call stop.
    virtual void open() = 0;
    // Writes what has been heard since open, and all that follows, into a file that doesn't exist
    // yet; done when the file is being written. Throws std::runtime_error when the microphone or
    // the file can't be had, or stop was called; nothing is running then. Only after open.
    virtual Task<> start(std::filesystem::path file) = 0;

    // Who hears the next recording that is started, from its first sound on, as it is written;
    // nobody if null. Nothing that becomes of him touches the recording.
    virtual void setListener(std::shared_ptr<SoundListener> listener) = 0;

    // Seconds recorded so far; 0 when idle.
    virtual double currentTime() const = 0;
    // The latest average power in decibels, 0 for full scale, -160 for silence or when idle.
    virtual double averagePower() const = 0;

    // Ends the recording, or forgets what is held before a start; 0 when idle. Seconds of sound
    // that have come until now. What was spoken but is still on its way is in the file, too, once
    // the value that finished() gives has come.
    virtual double stop() = 0;
    // Comes when the last recording that was stopped is an ordinary, whole file, or could not be
    // made one in bounded time; then it plays as far as it grew. At once when none is under way.
    // The seconds of sound that it holds.
    virtual Eventual<double> finished() = 0;

    // Called with true when the recording that was started has taken no sound for two seconds, as
    // from a source that was suspended or a headset that went to sleep, and with false when sound
    // comes again. The recording goes on. Not called after stop().
    std::function<void(bool stalled)> onStalled;
    // Called when a recording ends by itself; the file is then as whole as it will be. Not called
    // after stop().
    std::function<void(RecorderFailure)> onFailure;
};

} // namespace vesko
