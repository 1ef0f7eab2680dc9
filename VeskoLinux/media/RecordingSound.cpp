#include "VeskoLinux/media/RecordingSound.h"

#include "VeskoLinux/media/GstPlugins.h"

#include <gst/app/gstappsink.h>
#include <gst/gst.h>

#include <memory>
#include <stdexcept>

namespace vesko {

namespace {

constexpr auto description
    = "filesrc name=file ! qtdemux ! aacparse ! faad ! audioconvert dithering=none"
      " ! audioresample quality=10 ! audio/x-raw,format=S16LE,rate=16000,channels=1"
      " ! appsink name=sink sync=false max-buffers=64";
constexpr std::size_t longest = std::size_t{ 3600 } * soundRate; // samples
constexpr GstClockTime glance = 50 * GST_MSECOND;
constexpr int patience = 200; // glances in vain; a sound part gives its first sample in a few

struct Unref {
    void operator()(GstElement* element) const { gst_object_unref(element); }
    void operator()(GstSample* sample) const { gst_sample_unref(sample); }
    void operator()(GstBus* bus) const { gst_object_unref(bus); }
    void operator()(GstMessage* message) const { gst_message_unref(message); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

struct Stopped {
    void operator()(GstElement* pipeline) const
    {
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(pipeline);
    }
};

void give(GstSample* sample, std::size_t& count,
    const std::function<void(std::span<const std::int16_t>)>& take)
{
    GstBuffer* buffer = gst_sample_get_buffer(sample);
    GstMapInfo bytes;
    if (!buffer || !gst_buffer_map(buffer, &bytes, GST_MAP_READ))
        throw std::runtime_error("the decoder gave no sound");
    const std::span samples(
        reinterpret_cast<const std::int16_t*>(bytes.data), bytes.size / sizeof(std::int16_t));
    count += samples.size();
    if (count <= longest)
        take(samples);
    gst_buffer_unmap(buffer, &bytes);
    if (count > longest)
        throw std::runtime_error("the recording is too long");
}

} // namespace

void decodeRecording(const std::filesystem::path& audio, const std::stop_token& stop,
    const std::function<void(std::span<const std::int16_t>)>& take)
{
    // To open a pipe would wait for its writer.
    if (std::error_code error; !std::filesystem::is_regular_file(audio, error))
        throw std::runtime_error("the recording is missing");
    if (!loadGstPlugins({ "coreelements", "isomp4", "audioparsers", "faad", "audioconvert",
            "audioresample", "app" }))
        throw std::runtime_error("GStreamer can't start");
    GError* lack = nullptr;
    const std::unique_ptr<GstElement, Stopped> pipeline(gst_parse_launch(description, &lack));
    const bool whole = pipeline && !lack; // without one of its parts it is made all the same
    g_clear_error(&lack);
    if (!whole)
        throw std::runtime_error("a part of the decoder is not installed");
    const Owned<GstElement> source(gst_bin_get_by_name(GST_BIN(pipeline.get()), "file"));
    const Owned<GstElement> sink(gst_bin_get_by_name(GST_BIN(pipeline.get()), "sink"));
    const Owned<GstBus> bus(gst_element_get_bus(pipeline.get()));
    g_object_set(source.get(), "location", audio.c_str(), nullptr);
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);

    std::size_t count = 0;
    int inVain = 0;
    while (!stop.stop_requested()) {
        const Owned<GstSample> sample(
            gst_app_sink_try_pull_sample(GST_APP_SINK(sink.get()), glance));
        if (sample) {
            give(sample.get(), count, take);
            inVain = 0;
        } else if (gst_app_sink_is_eos(GST_APP_SINK(sink.get()))) {
            break;
        } else if (const Owned<GstMessage> failed(
                       gst_bus_pop_filtered(bus.get(), GST_MESSAGE_ERROR));
            failed || ++inVain == patience) {
            // A stream without samples may bring neither an error nor an end.
            throw std::runtime_error("the recording can't be decoded");
        }
    }
}

} // namespace vesko
