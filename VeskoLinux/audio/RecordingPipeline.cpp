#include "VeskoLinux/audio/RecordingPipeline.h"

#include "VeskoCore/base/FileSystem.h"
#include "VeskoLinux/audio/OrderlyFinish.h"
#include "VeskoLinux/audio/SoundTap.h"
#include "VeskoLinux/media/GstPlugins.h"

#include <gst/gst.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <fcntl.h>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace vesko {

namespace {

using namespace std::chrono_literals;

constexpr double silence = -160;

// The source's own ring would lose what comes while a busy machine gives this program no time. The
// queue holds the sound until there is a file, while the encoder opens and while the disk is busy.
constexpr auto listening
    = "pulsesrc name=source client-name=Vesko buffer-time=10000000"
      " ! queue name=queue max-size-time=30000000000 max-size-buffers=0 max-size-bytes=0";
// Fragments make the file playable while it grows; at the end it is rewritten as an ordinary one.
constexpr auto writing
    = "audioconvert ! audioresample ! audio/x-raw,format=S16LE,rate=44100,channels=1"
      " ! level interval=50000000 ! audioconvert ! avenc_aac bitrate=96000 ! aacparse name=encoded"
      " ! mp4mux fragment-duration=200 fragment-mode=first-moov-then-finalise"
      " ! filesink name=sink buffer-mode=unbuffered async=false";

// Made before the sink opens it, so that no one else could ever read it.
void createForOwnerOnly(const std::filesystem::path& file)
{
    const int descriptor
        = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "The recording's file");
    ::close(descriptor);
}

std::string takeText(GError* error)
{
    std::string text = error ? error->message : "unknown error";
    g_clear_error(&error);
    return text;
}

} // namespace

void RecordingPipeline::Unref::operator()(GstElement* element) const
{
    gst_object_unref(element);
}

RecordingPipeline::RecordingPipeline(std::function<void()> changed)
    : m_changed(std::move(changed))
    , m_power(silence)
{
}

RecordingPipeline::~RecordingPipeline()
{
    if (!m_pipeline)
        return;
    end();
    m_tap.reset();
    gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    g_signal_handlers_disconnect_by_data(m_source.get(), this);
    GstBus* bus = gst_element_get_bus(m_pipeline.get());
    gst_bus_set_sync_handler(bus, nullptr, nullptr, nullptr);
    gst_object_unref(bus);
}

void RecordingPipeline::build()
{
    if (m_pipeline)
        return;
    if (!loadGstPlugins({ "coreelements", "pulseaudio" }))
        throw std::runtime_error("GStreamer can't start");
    GError* error = nullptr;
    Element pipeline(gst_parse_launch(listening, &error));
    if (error || !pipeline)
        throw std::runtime_error("The recorder lacks a part: " + takeText(error));
    m_source.reset(gst_bin_get_by_name(GST_BIN(pipeline.get()), "source"));
    m_queue.reset(gst_bin_get_by_name(GST_BIN(pipeline.get()), "queue"));

    GstPad* into = gst_element_get_static_pad(m_queue.get(), "sink");
    gst_pad_add_probe(
        into, GST_PAD_PROBE_TYPE_BUFFER,
        [](GstPad*, GstPadProbeInfo* info, gpointer self) {
            const GstBuffer* buffer = GST_PAD_PROBE_INFO_BUFFER(info);
            if (GST_BUFFER_PTS_IS_VALID(buffer) && GST_BUFFER_DURATION_IS_VALID(buffer)) {
                const auto begin = static_cast<long long>(GST_BUFFER_PTS(buffer));
                static_cast<RecordingPipeline*>(self)->noteCaptured(
                    begin, begin + static_cast<long long>(GST_BUFFER_DURATION(buffer)));
            }
            return GST_PAD_PROBE_OK;
        },
        this, nullptr);
    // A source that fails before its first sound ends a stream that the parts behind it never saw
    // begin.
    gst_pad_add_probe(
        into, GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM,
        [](GstPad*, GstPadProbeInfo* info, gpointer self) {
            return GST_EVENT_TYPE(GST_PAD_PROBE_INFO_EVENT(info)) == GST_EVENT_EOS
                    && static_cast<RecordingPipeline*>(self)->m_lastTime < 0
                ? GST_PAD_PROBE_DROP
                : GST_PAD_PROBE_OK;
        },
        this, nullptr);
    // Passing this question on would keep the source waiting until there is a file.
    gst_pad_add_probe(
        into, GST_PAD_PROBE_TYPE_QUERY_DOWNSTREAM,
        [](GstPad*, GstPadProbeInfo* info, gpointer) {
            return GST_QUERY_TYPE(GST_PAD_PROBE_INFO_QUERY(info)) == GST_QUERY_ALLOCATION
                ? GST_PAD_PROBE_DROP
                : GST_PAD_PROBE_OK;
        },
        nullptr, nullptr);
    gst_object_unref(into);
    GstPad* out = gst_element_get_static_pad(m_queue.get(), "src");
    m_held = gst_pad_add_probe(
        out, GST_PAD_PROBE_TYPE_BLOCK_DOWNSTREAM,
        [](GstPad*, GstPadProbeInfo*, gpointer) { return GST_PAD_PROBE_OK; }, nullptr, nullptr);
    gst_object_unref(out);

    // Full, with a disk that takes nothing: from here on sound would be lost.
    g_signal_connect(m_queue.get(), "overrun",
        G_CALLBACK(+[](GstElement*, RecordingPipeline* self) {
            self->noteFailure(RecorderFailure::encoding, "The disk is too slow");
        }),
        this);
    g_signal_connect(m_source.get(), "notify::current-device",
        G_CALLBACK(+[](GstElement*, GParamSpec*, RecordingPipeline* self) { self->m_changed(); }),
        this);

    GstBus* bus = gst_element_get_bus(pipeline.get());
    gst_bus_set_sync_handler(
        bus,
        [](GstBus*, GstMessage* message, gpointer self) {
            static_cast<RecordingPipeline*>(self)->note(message);
            gst_message_unref(message);
            return GST_BUS_DROP;
        },
        this, nullptr);
    gst_object_unref(bus);
    m_pipeline = std::move(pipeline);
}

void RecordingPipeline::open()
{
    build();
    const bool opening
        = gst_element_set_state(m_pipeline.get(), GST_STATE_PLAYING) != GST_STATE_CHANGE_FAILURE;
    // Only now, while sound is coming in already: the encoder brings a hundred libraries with it,
    // which a program that nobody dictates to need not hold in memory.
    loadGstPlugins({ "audioconvert", "audioresample", "level", "libav", "audioparsers", "isomp4" });
    GError* error = nullptr;
    GstElement* writer = gst_parse_bin_from_description(writing, TRUE, &error);
    if (error || !writer)
        throw std::runtime_error("The recorder lacks a part: " + takeText(error));
    m_writer.reset(GST_ELEMENT(gst_object_ref_sink(writer)));
    const std::scoped_lock lock(m_mutex);
    m_opened = opening;
}

void RecordingPipeline::listenIn(const std::shared_ptr<SoundListener>& listener)
{
    const Element parser(gst_bin_get_by_name(GST_BIN(m_writer.get()), "encoded"));
    GstPad* out = gst_element_get_static_pad(parser.get(), "src");
    try {
        m_tap = std::make_unique<SoundTap>(out, listener);
    } catch (const std::runtime_error&) {
        // The file will tell him.
    }
    gst_object_unref(out);
}

void RecordingPipeline::begin(
    const std::filesystem::path& file, const std::shared_ptr<SoundListener>& listener)
{
    createForOwnerOnly(file);
    bool started = m_opened;
    if (started) {
        if (listener)
            listenIn(listener);
        const Element sink(gst_bin_get_by_name(GST_BIN(m_writer.get()), "sink"));
        g_object_set(sink.get(), "location", file.c_str(), nullptr);
        GstPad* written = gst_element_get_static_pad(sink.get(), "sink");
        m_finish = std::make_unique<OrderlyFinish>(written);
        gst_object_unref(written);
        m_file = file;
        gst_bin_add(GST_BIN(m_pipeline.get()), m_writer.get());
        GstPad* out = gst_element_get_static_pad(m_queue.get(), "src");
        GstPad* in = gst_element_get_static_pad(m_writer.get(), "sink");
        // Asked to choose its format anew, the source would begin again and lose what it hears.
        constexpr auto quietly = static_cast<GstPadLinkCheck>(
            GST_PAD_LINK_CHECK_DEFAULT | GST_PAD_LINK_CHECK_NO_RECONFIGURE);
        started = gst_pad_link_full(out, in, quietly) == GST_PAD_LINK_OK
            && gst_element_sync_state_with_parent(m_writer.get());
        gst_object_unref(in);
        gst_pad_remove_probe(out, m_held);
        gst_object_unref(out);
    }
    {
        std::unique_lock lock(m_mutex);
        m_noted.wait(lock, [&] {
            return !started || m_lastTime >= 0 || m_failure || m_abandoned || m_endOfStream;
        });
    }
    // Asks the sound server, whose own thread may be about to tell of a failure: without our lock.
    const bool withoutMicrophone = started && hearsTheSpeakers();
    std::string reason;
    {
        const std::scoped_lock lock(m_mutex);
        if (m_abandoned)
            reason = "The recording was given up before it began";
        else if (!started || m_failure || m_endOfStream)
            reason = "The microphone could not start: " + m_reason;
        else if (withoutMicrophone)
            reason = "There is no microphone";
        m_running = reason.empty();
        if (m_running)
            return;
    }
    gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    ::unlink(file.c_str());
    throw std::runtime_error(reason);
}

void RecordingPipeline::abandon()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_abandoned = true;
    }
    m_noted.notify_all();
}

std::optional<RecorderFailure> RecordingPipeline::attend()
{
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_running)
            return std::nullopt; // begin() tells what went wrong before it
    }
    if (hearsTheSpeakers())
        noteFailure(RecorderFailure::stoppedUnexpectedly, "The microphone has gone");
    {
        const std::scoped_lock lock(m_mutex);
        if (m_endOfStream && !m_failure)
            m_failure = RecorderFailure::stoppedUnexpectedly;
        if (!m_failure)
            return std::nullopt;
    }
    end();
    const std::scoped_lock lock(m_mutex);
    return m_failure;
}

void RecordingPipeline::end()
{
    {
        const std::scoped_lock lock(m_mutex);
        if (!std::exchange(m_running, false))
            return;
    }
    awaitWhatIsUnderWay();
    // An end sent to the pipeline goes through the source, which may be stalled; one that enters
    // behind it always arrives. A full queue would keep it out.
    g_object_set(m_queue.get(), "max-size-time", guint64{ 0 }, nullptr);
    GstPad* pad = gst_element_get_static_pad(m_queue.get(), "sink");
    gst_pad_send_event(pad, gst_event_new_eos());
    gst_object_unref(pad);

    // What has failed may still reach its end, as when the microphone was pulled out; what hasn't
    // surely does, unless the disk hangs.
    std::unique_lock lock(m_mutex);
    m_noted.wait_for(lock, 10s, [this] { return m_endOfStream || m_failure; });
    m_noted.wait_for(lock, 2s, [this] { return m_endOfStream; });
    if (!m_endOfStream)
        return; // the file stays as it was while it grew
    lock.unlock();
    try {
        m_finish->complete(FileSystem::posix(), m_file);
    } catch (const std::exception&) {
        // Likewise.
    }
}

// The last words before a stop are still on their way from the microphone: a buffer's length from a
// built-in one, some hundred milliseconds from a headset without wires.
void RecordingPipeline::awaitWhatIsUnderWay()
{
    GstClock* clock = gst_element_get_clock(m_pipeline.get());
    if (!clock)
        return;
    const auto now = static_cast<long long>(
        gst_clock_get_time(clock) - gst_element_get_base_time(m_pipeline.get()));
    gst_object_unref(clock);
    std::unique_lock lock(m_mutex);
    m_noted.wait_for(lock, 500ms, [&] { return m_lastTime >= now || m_failure || m_endOfStream; });
}

double RecordingPipeline::capturedSeconds() const
{
    const long long first = m_firstTime;
    const long long last = m_lastTime;
    return last < 0 ? 0 : static_cast<double>(last - first) / GST_SECOND;
}

void RecordingPipeline::note(GstMessage* message)
{
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ELEMENT: {
        const GstStructure* structure = gst_message_get_structure(message);
        if (!gst_structure_has_name(structure, "level"))
            return;
        const GValue* value = gst_structure_get_value(structure, "rms");
        const auto* channels = static_cast<GValueArray*>(g_value_get_boxed(value));
        const double power = g_value_get_double(&channels->values[0]);
        m_power = std::isnan(power) ? silence : std::clamp(power, silence, 0.0);
        return;
    }
    case GST_MESSAGE_ERROR: {
        GError* error = nullptr;
        gst_message_parse_error(message, &error, nullptr);
        const bool ofSource = GST_MESSAGE_SRC(message) == GST_OBJECT(m_source.get());
        noteFailure(ofSource ? RecorderFailure::stoppedUnexpectedly : RecorderFailure::encoding,
            takeText(error));
        return;
    }
    case GST_MESSAGE_EOS: {
        {
            const std::scoped_lock lock(m_mutex);
            m_endOfStream = true;
        }
        m_noted.notify_all();
        m_changed();
        return;
    }
    default:
        return;
    }
}

void RecordingPipeline::noteCaptured(long long begin, long long end)
{
    if (m_firstTime < 0)
        m_firstTime = begin;
    {
        // With the lock, so that no one can miss it between his look and his sleep.
        const std::scoped_lock lock(m_mutex);
        m_lastTime = end;
    }
    m_noted.notify_all();
}

// The first one counts: what follows is its consequence.
void RecordingPipeline::noteFailure(RecorderFailure failure, std::string reason)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (m_failure)
            return;
        m_failure = failure;
        m_reason = std::move(reason);
    }
    m_noted.notify_all();
    m_changed();
}

// Without a microphone the sound server offers what its speakers play.
bool RecordingPipeline::hearsTheSpeakers() const
{
    gchar* name = nullptr;
    g_object_get(m_source.get(), "current-device", &name, nullptr);
    const bool monitor = name && std::string_view(name).ends_with(".monitor");
    g_free(name);
    return monitor;
}

} // namespace vesko
