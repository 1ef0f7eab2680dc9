#include "VeskoLinux/speech/VoiceActivity.h"

#include "VeskoLinux/media/GstPlugins.h"
#include "VeskoLinux/speech/Loudness.h"
#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/StartTone.h"

#include <gst/app/gstappsrc.h>
#include <gst/gst.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

namespace vesko {

namespace {

// WebRTC's detector. From version 1 on it is as strict as it can be, whatever it is told.
constexpr auto description
    = "appsrc name=source format=time"
      " caps=audio/x-raw,format=S16LE,rate=16000,channels=1,layout=interleaved"
      " ! webrtcdsp name=detector voice-detection=true echo-cancel=false"
      " noise-suppression=false gain-control=false high-pass-filter=true"
      " ! fakesink sync=false async=false";
// The shortest words take 0.2 seconds. The detector's first 0.1 mean nothing: it has yet to learn
// what is noise here.
constexpr GstClockTime shortest = 120 * GST_MSECOND;
constexpr GstClockTime patience = 5 * GST_SECOND;

struct Gone {
    void operator()(GstElement* pipeline) const
    {
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(pipeline);
    }
    void operator()(GstBus* bus) const { gst_object_unref(bus); }
    void operator()(GstMessage* message) const { gst_message_unref(message); }
};
template <class T>
using Held = std::unique_ptr<T, Gone>;

GstBuffer* bufferOf(std::span<const std::int16_t> samples)
{
    // Nothing writes into it.
    GstBuffer* buffer = gst_buffer_new_wrapped_full(GST_MEMORY_FLAG_READONLY,
        const_cast<std::int16_t*>(samples.data()), samples.size_bytes(), 0, samples.size_bytes(),
        nullptr, nullptr);
    GST_BUFFER_PTS(buffer) = 0;
    GST_BUFFER_DURATION(buffer) = samples.size() * GST_SECOND / speechRate;
    return buffer;
}

// Whether something stands out of the rest, longer than a click does: the detector misses the
// shortest words when they are low.
bool standsOut(std::span<const std::int16_t> samples)
{
    constexpr std::size_t moment = speechRate / 50;
    constexpr double contrast = 4, lowest = 8; // times; root mean square
    constexpr int longEnough = 3; // moments
    std::vector<double> moments;
    for (std::size_t at = 0; at + moment <= samples.size(); at += moment) {
        double sum = 0;
        for (const double sample : samples.subspan(at, moment))
            sum += sample * sample;
        moments.push_back(std::sqrt(sum / moment));
    }
    if (moments.empty())
        return false;
    auto sorted = moments;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::ranges::nth_element(sorted, middle);
    const double limit = std::max(*middle * contrast, lowest);
    int loud = 0;
    return std::ranges::any_of(moments, [&](double power) {
        loud = power > limit ? loud + 1 : 0;
        return loud == longEnough;
    });
}

bool holdsVoice(std::span<const std::int16_t> samples, const char* likelihood)
{
    if (!loadGstPlugins({ "coreelements", "app", "webrtcdsp" }))
        return true;
    GError* lack = nullptr;
    const Held<GstElement> pipeline(gst_parse_launch(description, &lack));
    const bool whole = pipeline && !lack;
    g_clear_error(&lack);
    if (!whole)
        return true;
    const Held<GstBus> bus(gst_element_get_bus(pipeline.get()));
    GstElement* detector = gst_bin_get_by_name(GST_BIN(pipeline.get()), "detector");
    gst_util_set_object_arg(G_OBJECT(detector), "voice-detection-likelihood", likelihood);
    gst_object_unref(detector);
    GstElement* source = gst_bin_get_by_name(GST_BIN(pipeline.get()), "source");
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    gst_app_src_push_buffer(GST_APP_SRC(source), bufferOf(samples));
    gst_app_src_end_of_stream(GST_APP_SRC(source));
    gst_object_unref(source);

    std::optional<GstClockTime> since;
    const auto lasted = [&](GstClockTime until) { return since && until >= *since + shortest; };
    while (true) {
        const Held<GstMessage> message(gst_bus_timed_pop_filtered(bus.get(), patience,
            static_cast<GstMessageType>(
                GST_MESSAGE_ELEMENT | GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
        if (!message || GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_ERROR)
            return true;
        if (GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS)
            return lasted(samples.size() * GST_SECOND / speechRate);
        const GstStructure* said = gst_message_get_structure(message.get());
        gboolean voice = FALSE;
        GstClockTime at = 0;
        if (!gst_structure_has_name(said, "voice-activity")
            || !gst_structure_get_boolean(said, "stream-has-voice", &voice)
            || !gst_structure_get_clock_time(said, "stream-time", &at))
            continue;
        if (voice)
            since = since.value_or(at);
        else if (lasted(at))
            return true;
        else
            since.reset();
    }
}

} // namespace

bool mayHoldSpeech(std::span<const std::int16_t> heard)
{
    const auto samples = withoutStartTone(heard);
    if (standsOut(samples))
        return true;
    if (std::ranges::none_of(samples, [](auto sample) { return sample != 0; }))
        return false;
    // As ready as it can be without taking every noise for a voice; and a strict ear, which misses
    // what is low, for what is lifted.
    return holdsVoice(samples, "moderate") || holdsVoice(lifted(samples), "very-low");
}

} // namespace vesko
