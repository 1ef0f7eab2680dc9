#include "VeskoLinux/audio/Microphone.h"

#include "VeskoLinux/media/GstPlugins.h"

#include <gst/gst.h>

#include <memory>

namespace vesko {

namespace {

struct UnrefObject {
    void operator()(gpointer object) const { gst_object_unref(object); }
};
template <class T>
using GstOwned = std::unique_ptr<T, UnrefObject>;

// The monitor of a loudspeaker is a source too.
bool isMicrophone(GstDevice* device)
{
    if (!gst_device_has_classes(device, "Audio/Source"))
        return false;
    GstStructure* const properties = gst_device_get_properties(device);
    const char* const kind
        = properties ? gst_structure_get_string(properties, "device.class") : nullptr;
    const bool monitor = kind && g_str_equal(kind, "monitor");
    if (properties)
        gst_structure_free(properties);
    return !monitor;
}

} // namespace

bool microphoneExists()
{
    if (!loadGstPlugins({ "pulseaudio" }))
        return false;
    const GstOwned<GstDeviceProvider> provider(
        gst_device_provider_factory_get_by_name("pulsedeviceprovider"));
    // Only a provider that was started gives the memory of its connection back.
    if (!provider || !gst_device_provider_start(provider.get()))
        return false;
    GList* const devices = gst_device_provider_get_devices(provider.get());
    bool found = false;
    for (const GList* device = devices; device; device = device->next)
        found = found || isMicrophone(GST_DEVICE(device->data));
    g_list_free_full(devices, gst_object_unref);
    gst_device_provider_stop(provider.get());
    return found;
}

bool microphoneOpens()
{
    if (!loadGstPlugins({ "coreelements", "pulseaudio" }))
        return false;
    GError* error = nullptr;
    const GstOwned<GstElement> pipeline(
        gst_parse_launch("pulsesrc client-name=Vesko ! fakesink", &error));
    if (error || !pipeline) {
        g_clear_error(&error);
        return false;
    }
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    // It plays as soon as the first sound has come.
    const bool opens = gst_element_get_state(pipeline.get(), nullptr, nullptr, 3 * GST_SECOND)
        == GST_STATE_CHANGE_SUCCESS;
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return opens;
}

std::optional<double> microphoneLevel()
{
    if (!loadGstPlugins({ "coreelements", "pulseaudio", "audioconvert", "level" }))
        return std::nullopt;
    GError* error = nullptr;
    const GstOwned<GstElement> pipeline(
        gst_parse_launch("pulsesrc client-name=Vesko ! audioconvert ! audio/x-raw,channels=1"
                         " ! level interval=1000000000 ! fakesink",
            &error));
    if (error || !pipeline) {
        g_clear_error(&error);
        return std::nullopt;
    }
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    std::optional<double> loudest;
    const GstOwned<GstBus> bus(gst_element_get_bus(pipeline.get()));
    if (GstMessage* const message = gst_bus_timed_pop_filtered(bus.get(), 4 * GST_SECOND,
            static_cast<GstMessageType>(GST_MESSAGE_ELEMENT | GST_MESSAGE_ERROR))) {
        const GstStructure* const told = gst_message_get_structure(message);
        const GValue* const peak = told ? gst_structure_get_value(told, "peak") : nullptr;
        if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ELEMENT && peak) {
            const auto* const channels = static_cast<const GValueArray*>(g_value_get_boxed(peak));
            if (channels && channels->n_values > 0)
                loudest = g_value_get_double(channels->values);
        }
        gst_message_unref(message);
    }
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return loudest;
}

} // namespace vesko
