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

} // namespace vesko
