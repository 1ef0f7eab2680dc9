#include "VeskoLinux/audio/GstRecorder.h"

#include "VeskoCore/base/FileSystem.h"
#include "VeskoLinux/audio/GrowingFile.h"
#include "VeskoLinux/audio/RecordingPipeline.h"

#include <QTimer>

#include <stdexcept>
#include <system_error>
#include <utility>

namespace vesko {

namespace {

constexpr auto listenInterval = std::chrono::milliseconds(250);
constexpr int stalledLooks = 8; // two seconds
// Where the disk keeps up, a loss of power takes little more than these two seconds of what was
// said.
constexpr int looksBetweenKeeping = 8;

} // namespace

// A Bluetooth headset takes seconds to open its microphone; a server that hangs takes for ever.
GstRecorder::GstRecorder(std::chrono::milliseconds patience)
    : m_patience(patience)
    , m_next(nextPipeline())
{
    m_listen.setInterval(listenInterval);
    QObject::connect(&m_listen, &QTimer::timeout, &m_home, [this] { lookForSound(); });
}

GstRecorder::~GstRecorder()
{
    if (m_current)
        m_current->abandon();
}

GstRecorder::Pipeline GstRecorder::nextPipeline()
{
    // Told from GStreamer's threads, which end with the pipeline: before m_home, but perhaps after
    // all else of this object.
    auto self = std::make_shared<std::weak_ptr<RecordingPipeline>>();
    auto pipeline = std::make_shared<RecordingPipeline>([this, self, home = &m_home] {
        QMetaObject::invokeMethod(
            home,
            [this, self] {
                if (m_current && m_current == self->lock())
                    m_tasks.spawn(attend(m_current));
            },
            Qt::QueuedConnection);
    });
    *self = pipeline;
    return pipeline;
}

void GstRecorder::prepare()
{
    m_tasks.spawn(build(m_next));
}

// Programs outside a sandbox may use the microphone.
Task<bool> GstRecorder::requestAccess()
{
    co_return true;
}

void GstRecorder::open()
{
    if (m_current)
        return;
    m_current = std::exchange(m_next, nextPipeline());
    m_started = false;
    m_tasks.spawn(openMicrophone(m_current));
}

Task<> GstRecorder::start(std::filesystem::path file)
{
    if (!m_current)
        throw std::runtime_error("The microphone isn't open");
    if (std::exchange(m_started, true))
        throw std::runtime_error("A recording is already under way");
    const Pipeline pipeline = m_current;
    m_file = file;

    // Unless it begins, and its caller is still there to hear of it, nothing stays behind.
    struct Unbegun {
        GstRecorder& recorder;
        const Pipeline& pipeline;
        bool begun = false;
        ~Unbegun()
        {
            if (!begun && recorder.m_current == pipeline)
                recorder.stop();
        }
    } state{ *this, pipeline };

    const Eventual<std::exception_ptr> outcome;
    m_beginning = outcome;
    QTimer::singleShot(m_patience, &m_home, [outcome] {
        outcome.set(
            std::make_exception_ptr(std::runtime_error("The microphone gave no sound in time")));
    });
    m_tasks.spawn(begin(pipeline, std::move(file), outcome));
    const auto failure = co_await outcome;
    if (failure)
        std::rethrow_exception(failure);
    if (m_current != pipeline)
        throw std::runtime_error("The recording was given up");
    state.begun = true;
    m_lastSound = currentTime();
    m_silentLooks = 0;
    m_looksUntilKept = looksBetweenKeeping;
    m_listen.start();
}

void GstRecorder::lookForSound()
{
    const double now = currentTime();
    const bool comes = std::exchange(m_lastSound, now) != now;
    const bool wasStalled = m_silentLooks >= stalledLooks;
    m_silentLooks = comes ? 0 : m_silentLooks + 1;
    if (const bool stalled = m_silentLooks >= stalledLooks; stalled != wasStalled && onStalled)
        onStalled(stalled);
    if (--m_looksUntilKept == 0)
        m_tasks.spawn(keepUntilNow());
}

// On a slow disk the next time is counted from the end of this one.
Task<> GstRecorder::keepUntilNow()
{
    try {
        co_await m_disk.run([file = m_file] { bringToDisk(FileSystem::posix(), file); });
    } catch (const std::system_error&) {
        // Whoever writes there has the same trouble, and tells.
    }
    m_looksUntilKept = looksBetweenKeeping;
}

Task<> GstRecorder::begin(
    Pipeline pipeline, std::filesystem::path file, Eventual<std::exception_ptr> begun)
{
    std::exception_ptr failure;
    try {
        co_await m_worker.run(
            [pipeline, file = std::move(file), listener = std::exchange(m_listener, nullptr)] {
                pipeline->begin(file, listener);
            });
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    pipeline.reset();
    begun.set(failure);
}

void GstRecorder::setListener(std::shared_ptr<SoundListener> listener)
{
    m_listener = std::move(listener);
}

double GstRecorder::currentTime() const
{
    return m_current ? m_current->capturedSeconds() : 0;
}

double GstRecorder::averagePower() const
{
    return m_current ? m_current->averagePower() : -160;
}

double GstRecorder::stop()
{
    if (!m_current)
        return 0;
    m_listen.stop();
    // The worker may still wait for the sound server, but nobody waits for the worker.
    if (const auto beginning = std::exchange(m_beginning, std::nullopt))
        QMetaObject::invokeMethod(
            &m_home,
            [outcome = *beginning] {
                outcome.set(
                    std::make_exception_ptr(std::runtime_error("The recording was given up")));
            },
            Qt::QueuedConnection);
    Pipeline pipeline = std::exchange(m_current, nullptr);
    const double seconds = pipeline->capturedSeconds();
    pipeline->abandon();
    m_finished = {};
    // While the worker waits for the server about anything else, the file is as whole as it grew.
    QTimer::singleShot(
        m_patience, &m_home, [finished = m_finished, seconds] { finished.set(seconds); });
    m_tasks.spawn(end(std::move(pipeline), m_finished));
    return seconds;
}

Task<> GstRecorder::end(Pipeline pipeline, Eventual<double> finished)
{
    finished.set(co_await m_worker.run([pipeline] {
        pipeline->end();
        return pipeline->capturedSeconds();
    }));
    // Its last reference goes here, on the worker: letting go of the device takes a moment.
    co_await m_worker.run([pipeline = std::move(pipeline)]() mutable { pipeline.reset(); });
    co_await build(m_next);
}

Task<> GstRecorder::attend(Pipeline pipeline)
{
    const auto failure = co_await m_worker.run([pipeline] { return pipeline->attend(); });
    // Not from this task, which the listener might end together with the recorder.
    if (failure)
        QMetaObject::invokeMethod(
            &m_home,
            [this, ended = std::weak_ptr(pipeline), failure] {
                if (m_current && m_current == ended.lock())
                    endedByItself(*failure);
            },
            Qt::QueuedConnection);
}

void GstRecorder::endedByItself(RecorderFailure failure)
{
    m_listen.stop();
    m_tasks.spawn(end(std::exchange(m_current, nullptr), {}));
    if (const auto tell = onFailure)
        tell(failure);
}

// Its failure is begin's to tell.
Task<> GstRecorder::openMicrophone(Pipeline pipeline)
{
    try {
        co_await m_worker.run([pipeline = std::move(pipeline)] { pipeline->open(); });
    } catch (const std::runtime_error&) {
    }
}

Task<> GstRecorder::build(Pipeline pipeline)
{
    try {
        co_await m_worker.run([pipeline = std::move(pipeline)] { pipeline->build(); });
    } catch (const std::runtime_error&) {
        // begin() builds what isn't there, and then its caller hears why it can't.
    }
}

} // namespace vesko
