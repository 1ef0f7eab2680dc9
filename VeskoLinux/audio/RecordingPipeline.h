#pragma once

#include "VeskoApp/platform/AudioRecorder.h"
#include "VeskoApp/platform/SoundListener.h"

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

using GstBus = struct _GstBus;
using GstElement = struct _GstElement;
using GstMessage = struct _GstMessage;

namespace vesko {

class OrderlyFinish;
class SoundTap;

// One recording, from the default microphone into one file, on GStreamer's threads. build, open,
// begin, attend, end and the destructor may wait for the sound server or the disk: they are for
// one worker thread, one after the other. The other functions are for any thread and never wait.
class RecordingPipeline {
public:
    // `changed` is called from any thread once the recording has begun, when it may have ended by
    // itself: then attend() tells.
    explicit RecordingPipeline(std::function<void()> changed);
    RecordingPipeline(const RecordingPipeline&) = delete;
    RecordingPipeline& operator=(const RecordingPipeline&) = delete;
    // Ends what still runs.
    ~RecordingPipeline();

    // Puts together what takes the sound in, which takes time on a cold machine; holds no device
    // and no connection. Throws std::runtime_error when a part isn't installed.
    void build();
    // Begins to take sound and holds up to 30 seconds of it. Doesn't wait for the first.
    void open();
    // Writes what has been heard and all that comes into a new file, which the listener, if any,
    // hears; returns when the first sound has come. Throws std::runtime_error when it can't begin,
    // or abandon() was called; a file that it made is then removed.
    void begin(const std::filesystem::path& file, const std::shared_ptr<SoundListener>& listener);
    // Makes begin() give up where it waits for sound.
    void abandon();
    // Ends the recording if its microphone has gone or it has failed, and then tells why. The file
    // is as whole as it will be.
    std::optional<RecorderFailure> attend();
    // Returns when everything that the microphone has heard until now stands in the file, and it is
    // an ordinary one, as OrderlyFinish makes it; or when that has failed.
    void end();

    double capturedSeconds() const;
    // Decibels, 0 to -160.
    double averagePower() const { return m_power; }

private:
    struct Unref {
        void operator()(GstElement* element) const;
    };
    using Element = std::unique_ptr<GstElement, Unref>;

    void listenIn(const std::shared_ptr<SoundListener>& listener);
    void note(GstMessage* message);
    void noteCaptured(long long begin, long long end);
    void noteFailure(RecorderFailure failure, std::string reason);
    void awaitWhatIsUnderWay();
    bool hearsTheSpeakers() const;

    const std::function<void()> m_changed;
    Element m_pipeline;
    Element m_source;
    Element m_queue;
    Element m_writer; // all from the queue to the file; no part of the pipeline before that
    std::filesystem::path m_file;
    std::unique_ptr<OrderlyFinish> m_finish; // of the file
    std::unique_ptr<SoundTap> m_tap; // goes before what it listens to
    unsigned long m_held = 0; // keeps the sound in the queue

    std::atomic<long long> m_firstTime = -1; // nanoseconds of running time
    std::atomic<long long> m_lastTime = -1;
    std::atomic<double> m_power;

    std::mutex m_mutex; // for what follows
    std::condition_variable m_noted;
    bool m_running = false; // between a successful begin and the end
    bool m_opened = false;
    bool m_abandoned = false;
    bool m_endOfStream = false;
    std::optional<RecorderFailure> m_failure;
    std::string m_reason;
};

} // namespace vesko
