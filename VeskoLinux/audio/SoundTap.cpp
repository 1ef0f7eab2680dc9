#include "VeskoLinux/audio/SoundTap.h"

#include "VeskoLinux/media/GstPlugins.h"

#include <gst/app/gstappsink.h>
#include <gst/app/gstappsrc.h>
#include <gst/gst.h>

#include <chrono>
#include <stdexcept>
#include <utility>

namespace vesko {

namespace {

// As a recording's file is decoded, but for the file.
constexpr auto decoding
    = "appsrc name=source format=time max-bytes=0 ! faad ! audioconvert dithering=none"
      " ! audioresample quality=10 ! audio/x-raw,format=S16LE,rate=16000,channels=1"
      " ! appsink name=sink sync=false";
constexpr auto patience = std::chrono::seconds(2);

} // namespace

SoundTap::SoundTap(GstPad* encoded, std::shared_ptr<SoundListener> listener)
    : m_listener(std::move(listener))
    , m_encoded(GST_PAD(gst_object_ref(encoded)))
{
    GError* lack = nullptr;
    if (loadGstPlugins({ "app", "faad" }))
        m_pipeline = gst_parse_launch(decoding, &lack);
    const bool whole = m_pipeline && !lack;
    g_clear_error(&lack);
    if (!whole) {
        if (m_pipeline)
            gst_object_unref(m_pipeline);
        gst_object_unref(m_encoded);
        m_listener->end(false);
        throw std::runtime_error("a part of the decoder is not installed");
    }
    m_source = gst_bin_get_by_name(GST_BIN(m_pipeline), "source");
    m_sink = gst_bin_get_by_name(GST_BIN(m_pipeline), "sink");
    GstAppSinkCallbacks callbacks{};
    callbacks.new_sample = [](GstAppSink*, gpointer self) {
        static_cast<SoundTap*>(self)->leave();
        return GST_FLOW_OK;
    };
    callbacks.eos = [](GstAppSink*, gpointer self) { static_cast<SoundTap*>(self)->finish(true); };
    gst_app_sink_set_callbacks(GST_APP_SINK(m_sink), &callbacks, this, nullptr);
    GstBus* bus = gst_element_get_bus(m_pipeline);
    gst_bus_set_sync_handler(
        bus,
        [](GstBus*, GstMessage* message, gpointer self) {
            if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR)
                static_cast<SoundTap*>(self)->finish(false);
            gst_message_unref(message);
            return GST_BUS_DROP;
        },
        this, nullptr);
    gst_object_unref(bus);
    gst_element_set_state(m_pipeline, GST_STATE_PLAYING);
    constexpr auto both = static_cast<GstPadProbeType>(
        GST_PAD_PROBE_TYPE_BUFFER | GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM);
    m_probe = gst_pad_add_probe(
        m_encoded, both,
        [](GstPad*, GstPadProbeInfo* info, gpointer self) {
            auto& tap = *static_cast<SoundTap*>(self);
            if ((GST_PAD_PROBE_INFO_TYPE(info) & GST_PAD_PROBE_TYPE_BUFFER) != 0)
                tap.enter(GST_PAD_PROBE_INFO_BUFFER(info));
            else if (GST_EVENT_TYPE(GST_PAD_PROBE_INFO_EVENT(info)) == GST_EVENT_EOS)
                tap.close();
            return GST_PAD_PROBE_OK;
        },
        this, nullptr);
}

SoundTap::~SoundTap()
{
    gst_pad_remove_probe(m_encoded, m_probe);
    {
        std::unique_lock lock(m_mutex);
        if (m_closed)
            m_noted.wait_for(lock, patience, [this] { return m_finished; });
    }
    gst_element_set_state(m_pipeline, GST_STATE_NULL);
    GstBus* bus = gst_element_get_bus(m_pipeline);
    gst_bus_set_sync_handler(bus, nullptr, nullptr, nullptr);
    gst_object_unref(bus);
    finish(false);
    gst_object_unref(m_source);
    gst_object_unref(m_sink);
    gst_object_unref(m_pipeline);
    gst_object_unref(m_encoded);
}

void SoundTap::enter(GstBuffer* buffer)
{
    if (!m_began) {
        m_began = true;
        GstCaps* caps = gst_pad_get_current_caps(m_encoded);
        gst_app_src_set_caps(GST_APP_SRC(m_source), caps);
        if (caps)
            gst_caps_unref(caps);
    }
    gst_app_src_push_buffer(GST_APP_SRC(m_source), gst_buffer_ref(buffer));
}

void SoundTap::close()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_closed = true;
    }
    gst_app_src_end_of_stream(GST_APP_SRC(m_source));
}

void SoundTap::leave()
{
    GstSample* sample = gst_app_sink_try_pull_sample(GST_APP_SINK(m_sink), 0);
    if (!sample)
        return;
    GstBuffer* buffer = gst_sample_get_buffer(sample);
    GstMapInfo bytes;
    if (buffer && gst_buffer_map(buffer, &bytes, GST_MAP_READ)) {
        m_listener->take({ reinterpret_cast<const std::int16_t*>(bytes.data),
            bytes.size / sizeof(std::int16_t) });
        gst_buffer_unmap(buffer, &bytes);
    }
    gst_sample_unref(sample);
}

void SoundTap::finish(bool whole)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (std::exchange(m_finished, true))
            return;
    }
    m_noted.notify_all();
    m_listener->end(whole);
}

} // namespace vesko
