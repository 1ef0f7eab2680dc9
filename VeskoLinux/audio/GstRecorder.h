#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/AudioRecorder.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <exception>
#include <memory>
#include <optional>

namespace vesko {

class RecordingPipeline;

// Records through GStreamer from the sound server's default source, which stays the source if the
// user's choice moves it elsewhere meanwhile. What plays through the speakers is never taken for a
// microphone. The parts for the next recording are put together after each, so that a press
// finds them ready; while idle there is no thread awake and no connection.
//
// Destroying it ends a running recording and waits for its file.
class GstRecorder final : public AudioRecorder {
public:
    // A start that has no sound after this long fails; a stop that the sound server or the disk
    // keeps waiting counts as finished then.
    explicit GstRecorder(std::chrono::milliseconds patience = std::chrono::seconds(6));
    ~GstRecorder() override;

    void prepare() override;
    Task<bool> requestAccess() override;
    void open() override;
    Task<> start(std::filesystem::path file) override;
    void setListener(std::shared_ptr<SoundListener> listener) override;
    double currentTime() const override;
    double averagePower() const override;
    double stop() override;
    Eventual<double> finished() override { return m_finished; }

private:
    using Pipeline = std::shared_ptr<RecordingPipeline>;

    Pipeline nextPipeline();
    Task<> build(Pipeline pipeline);
    Task<> openMicrophone(Pipeline pipeline);
    Task<> begin(Pipeline pipeline, std::filesystem::path file, Eventual<std::exception_ptr> begun);
    Task<> attend(Pipeline pipeline);
    void lookForSound();
    Task<> keepUntilNow();
    void endedByItself(RecorderFailure failure);
    Task<> end(Pipeline pipeline, Eventual<double> finished);

    std::chrono::milliseconds m_patience;
    QObject m_home; // what other threads post to; outlives them all
    Pipeline m_next; // for the coming recording
    Pipeline m_current; // between open and stop
    std::shared_ptr<SoundListener> m_listener; // of the recording that is started next
    bool m_started = false;
    std::optional<Eventual<std::exception_ptr>> m_beginning; // what start() waits for
    QTimer m_listen; // while a started recording is under way
    double m_lastSound = 0; // seconds of the recording
    int m_silentLooks = 0; // at which no more sound had come
    std::filesystem::path m_file; // of the recording that was started last
    int m_looksUntilKept = 0;
    Eventual<double> m_finished = Eventual<double>::of(0);
    Worker m_worker; // what may wait for the sound server or the disk
    Worker m_disk; // what grows goes there beside the recording, whose end never waits for it
    TaskScope m_tasks;
};

} // namespace vesko
