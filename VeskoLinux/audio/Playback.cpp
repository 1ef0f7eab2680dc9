#include "VeskoLinux/audio/Playback.h"

#include "VeskoLinux/media/GstPlugins.h"

#include <gst/gst.h>

#include <chrono>
#include <stdexcept>

namespace vesko {

namespace {

using namespace std::chrono_literals;

constexpr auto description
    = "filesrc name=file ! qtdemux ! aacparse ! faad ! audioconvert ! scaletempo"
      " ! audioconvert ! audioresample ! pulsesink client-name=Vesko";

std::string takeText(GError* error)
{
    std::string text = error ? error->message : "unknown error";
    g_clear_error(&error);
    return text;
}

} // namespace

void Playback::Close::operator()(GstElement* pipeline) const
{
    gst_element_set_state(pipeline, GST_STATE_NULL);
    GstBus* bus = gst_element_get_bus(pipeline);
    gst_bus_set_sync_handler(bus, nullptr, nullptr, nullptr);
    gst_object_unref(bus);
    gst_object_unref(pipeline);
}

Playback::Playback(const std::filesystem::path& file, const std::stop_token& stop)
{
    // To open a pipe would wait for its writer.
    if (std::error_code error; !std::filesystem::is_regular_file(file, error))
        throw std::runtime_error("The audio file is missing");
    if (!loadGstPlugins({ "coreelements", "isomp4", "audioparsers", "faad", "audioconvert",
            "audiofx", "audioresample", "pulseaudio" }))
        throw std::runtime_error("GStreamer can't start");
    GError* error = nullptr;
    m_pipeline.reset(gst_parse_launch(description, &error));
    if (error || !m_pipeline)
        throw std::runtime_error("The player lacks a part: " + takeText(error));
    GstElement* source = gst_bin_get_by_name(GST_BIN(m_pipeline.get()), "file");
    g_object_set(source, "location", file.c_str(), nullptr);
    gst_object_unref(source);
    GstBus* bus = gst_element_get_bus(m_pipeline.get());
    gst_bus_set_sync_handler(
        bus,
        [](GstBus*, GstMessage* message, gpointer self) {
            static_cast<Playback*>(self)->note(message);
            gst_message_unref(message);
            return GST_BUS_DROP;
        },
        this, nullptr);
    gst_object_unref(bus);

    // Time spent in the paused state would be silence at the beginning.
    gst_element_set_state(m_pipeline.get(), GST_STATE_PLAYING);
    {
        std::unique_lock lock(m_mutex);
        m_noted.wait_for(lock, stop, 5s, [this] { return m_ready || !m_failure.empty(); });
        if (!m_ready)
            throw std::runtime_error("The audio can't be played: " + m_failure);
    }
    gint64 duration = 0;
    if (!gst_element_query_duration(m_pipeline.get(), GST_FORMAT_TIME, &duration) || duration < 0)
        throw std::runtime_error("The audio has no known length");
    m_seconds = static_cast<double>(duration) / GST_SECOND;
}

void Playback::seek(double seconds, double rate)
{
    gst_element_seek(m_pipeline.get(), rate, GST_FORMAT_TIME,
        static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE), GST_SEEK_TYPE_SET,
        static_cast<gint64>(seconds * GST_SECOND), GST_SEEK_TYPE_NONE, 0);
}

void Playback::note(GstMessage* message)
{
    const bool failed = GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR;
    if (!failed && GST_MESSAGE_TYPE(message) != GST_MESSAGE_ASYNC_DONE)
        return;
    {
        const std::scoped_lock lock(m_mutex);
        if (failed) {
            GError* error = nullptr;
            gst_message_parse_error(message, &error, nullptr);
            m_failure = takeText(error);
        } else {
            m_ready = true;
        }
    }
    m_noted.notify_all();
}

} // namespace vesko
