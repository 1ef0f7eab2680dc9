#include "VeskoLinux/audio/CuePlayback.h"

#include "VeskoCore/base/DynamicLibrary.h"
#include "VeskoLinux/media/GstPlugins.h"

#include <gst/app/gstappsrc.h>
#include <gst/controller/controller.h>
#include <gst/gst.h>

#include <cmath>
#include <memory>
#include <stdexcept>

namespace vesko {

namespace {

// Two poles without ripple are a Butterworth filter: 3 dB less at the cutoff, 12 dB an octave below
// it. To the desktop a cue is an event's sound, with that slider's volume.
constexpr auto description
    = "appsrc name=sample ! wavparse ! audioconvert"
      " ! audiocheblimit name=highpass mode=high-pass poles=2 ripple=0 ! pitch name=pitch"
      " ! volume name=volume"
      " ! pulsesink client-name=Vesko stream-properties=\"props,media.role=(string)event\"";
constexpr double latestEnd = 5; // seconds behind the end of the cue; some loudspeakers are far

struct Unref {
    void operator()(gpointer object) const { gst_object_unref(object); }
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
using Pipeline = std::unique_ptr<GstElement, Stopped>;

struct Controller {
    DynamicLibrary library{ "libgstcontroller-1.0.so.0" };
    decltype(&gst_interpolation_control_source_new) sourceNew
        = library["gst_interpolation_control_source_new"];
    decltype(&gst_timed_value_control_source_set) set
        = library["gst_timed_value_control_source_set"];
    decltype(&gst_direct_control_binding_new_absolute) bindingNew
        = library["gst_direct_control_binding_new_absolute"];
};

const Controller& controller()
{
    static const Controller loaded;
    return loaded;
}

GstClockTime nanoseconds(double seconds)
{
    return static_cast<GstClockTime>(std::llround(seconds * GST_SECOND));
}

Pipeline makePipeline()
{
    if (!loadGstPlugins({ "coreelements", "app", "wavparse", "audioconvert", "audiofx",
            "soundtouch", "volume", "pulseaudio" }))
        throw std::runtime_error("GStreamer can't start");
    GError* lack = nullptr;
    Pipeline pipeline(gst_parse_launch(description, &lack));
    const bool whole = pipeline && !lack; // without one of its parts it is made all the same
    g_clear_error(&lack);
    if (!whole)
        throw std::runtime_error("a part of the cues is not installed");
    return pipeline;
}

Owned<GstElement> part(const Pipeline& pipeline, const char* name)
{
    return Owned<GstElement>(gst_bin_get_by_name(GST_BIN(pipeline.get()), name));
}

// The volume element asks for the value of every single sample.
void shape(GstElement* volume, const std::vector<CueVolume>& envelope)
{
    const Owned<GstControlSource> values(controller().sourceNew());
    g_object_set(values.get(), "mode", GST_INTERPOLATION_MODE_NONE, nullptr);
    for (const auto& step : envelope)
        controller().set(reinterpret_cast<GstTimedValueControlSource*>(values.get()),
            nanoseconds(step.from), step.volume);
    gst_object_add_control_binding(
        GST_OBJECT(volume), controller().bindingNew(GST_OBJECT(volume), "volume", values.get()));
}

// Ends the stream where the cue ends.
void cut(GstElement* volume, double length)
{
    GstPad* into = gst_element_get_static_pad(volume, "sink");
    gst_pad_add_probe(
        into, GST_PAD_PROBE_TYPE_BUFFER,
        [](GstPad*, GstPadProbeInfo* info, gpointer end) {
            if (GST_BUFFER_PTS(GST_PAD_PROBE_INFO_BUFFER(info)) < *static_cast<GstClockTime*>(end))
                return GST_PAD_PROBE_OK;
            GST_PAD_PROBE_INFO_FLOW_RETURN(info) = GST_FLOW_EOS;
            return GST_PAD_PROBE_DROP;
        },
        new GstClockTime(nanoseconds(length)),
        [](gpointer end) { delete static_cast<GstClockTime*>(end); });
    gst_object_unref(into);
}

} // namespace

void loadCueParts()
{
    makePipeline();
    controller();
}

void playCue(const std::string& wav, const CueSound& sound, const std::stop_token& stop)
{
    const Pipeline pipeline = makePipeline();
    const Owned<GstBus> bus(gst_element_get_bus(pipeline.get()));
    g_object_set(part(pipeline, "highpass").get(), "cutoff", sound.highPass, nullptr);
    g_object_set(part(pipeline, "pitch").get(), "pitch", std::exp2(sound.pitch / 1200), nullptr);
    const Owned<GstElement> volume = part(pipeline, "volume");
    shape(volume.get(), sound.envelope);
    cut(volume.get(), sound.length);

    const Owned<GstElement> sample = part(pipeline, "sample");
    gst_app_src_push_buffer(
        GST_APP_SRC(sample.get()), gst_buffer_new_memdup(wav.data(), wav.size()));
    gst_app_src_end_of_stream(GST_APP_SRC(sample.get()));
    // Time spent in the paused state would be silence at the beginning.
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);

    const std::stop_callback cutOff(stop, [&bus] {
        gst_bus_post(
            bus.get(), gst_message_new_application(nullptr, gst_structure_new_empty("stop")));
    });
    const auto ends = static_cast<GstMessageType>( // NOLINT(*EnumCastOutOfRange): a set of flags
        GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_APPLICATION);
    const Owned<GstMessage> end(
        gst_bus_timed_pop_filtered(bus.get(), nanoseconds(sound.length + latestEnd), ends));
    if (!end || GST_MESSAGE_TYPE(end.get()) == GST_MESSAGE_ERROR)
        throw std::runtime_error("the cue can't be played");
}

} // namespace vesko
