#include "VeskoLinux/audio/AudioConversion.h"

#include "VeskoLinux/media/GstPlugins.h"

#include <fcntl.h>
#include <gst/gst.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace vesko {

namespace {

// What decodebin makes of a file is a graph of these.
constexpr auto conversion
    = "filesrc name=file ! decodebin ! audioconvert ! audioresample"
      " ! audio/x-raw,format=S16LE,rate=44100,channels=1 ! audioconvert ! avenc_aac bitrate=96000"
      " ! aacparse ! mp4mux ! filesink name=sink";
constexpr GstClockTime glance = 100 * GST_MSECOND;
constexpr int mostGlancesInVain = 200; // without any sound having come
constexpr double longestSound = 3600; // seconds

struct Close {
    void operator()(GstElement* pipeline) const
    {
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(pipeline);
    }
    void operator()(GstBus* bus) const { gst_object_unref(bus); }
    void operator()(GstMessage* message) const { gst_message_unref(message); }
};

double seconds(gint64 time)
{
    return static_cast<double>(time) / GST_SECOND;
}

void setLocation(GstElement* pipeline, const char* name, const std::filesystem::path& path)
{
    GstElement* const element = gst_bin_get_by_name(GST_BIN(pipeline), name);
    g_object_set(element, "location", path.c_str(), nullptr);
    gst_object_unref(element);
}

std::unique_ptr<GstElement, Close> makeConversion()
{
    if (!loadGstPlugins({ "coreelements", "typefindfunctions", "playback", "wavparse", "aiff",
            "auparse", "audioparsers", "id3demux", "mpg123", "ogg", "vorbis", "opus", "flac",
            "isomp4", "matroska", "faad", "libav", "audioconvert", "audioresample" }))
        throw std::runtime_error("GStreamer can't start");
    GError* lack = nullptr;
    std::unique_ptr<GstElement, Close> pipeline(gst_parse_launch(conversion, &lack));
    const bool whole = pipeline && !lack; // without one of its parts it is made all the same
    g_clear_error(&lack);
    if (!whole)
        throw std::runtime_error("a part of GStreamer is not installed; vesko --doctor says more");
    return pipeline;
}

} // namespace

double convertAudio(const std::filesystem::path& from, const std::filesystem::path& to,
    const std::function<bool(double)>& progress)
{
    std::error_code error;
    // To open a pipe would wait for its writer.
    if (!std::filesystem::exists(from, error))
        throw std::runtime_error("there is no such file");
    if (!std::filesystem::is_regular_file(from, error))
        throw std::runtime_error("this is no file with sound");
    const int made = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (made < 0)
        throw std::runtime_error("there is no place for a copy of it");
    ::close(made);
    const auto pipeline = makeConversion();
    setLocation(pipeline.get(), "file", from);
    setLocation(pipeline.get(), "sink", to);
    const std::unique_ptr<GstBus, Close> bus(gst_element_get_bus(pipeline.get()));
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    double position = 0;
    for (int inVain = 0; inVain < mostGlancesInVain; ++inVain) {
        const std::unique_ptr<GstMessage, Close> message(gst_bus_timed_pop_filtered(
            bus.get(), glance, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
        gint64 now = 0;
        gint64 end = 0;
        if (gst_element_query_position(pipeline.get(), GST_FORMAT_TIME, &now)
            && seconds(now) > position) {
            position = seconds(now);
            inVain = 0;
        }
        if (position > longestSound)
            throw std::runtime_error("this is longer than an hour");
        if (message && GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS && position > 0)
            return position;
        if (message)
            throw std::runtime_error("there is no sound in this file that can be read");
        const bool known
            = gst_element_query_duration(pipeline.get(), GST_FORMAT_TIME, &end) && end > 0;
        if (!progress(known ? std::min(1.0, position / seconds(end)) : 0))
            throw std::runtime_error("interrupted");
    }
    throw std::runtime_error("there is no sound in this file that can be read");
}

} // namespace vesko
