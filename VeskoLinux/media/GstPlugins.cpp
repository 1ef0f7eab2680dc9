#include "VeskoLinux/media/GstPlugins.h"

#include <gst/gst.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace vesko {

namespace {

// An environment variable that has another value, or none, while this lives.
class Changed {
public:
    Changed(const char* name, const char* value)
        : m_name(name)
    {
        if (const char* const before = std::getenv(name))
            m_before = before;
        set(value);
    }
    ~Changed() { set(m_before ? m_before->c_str() : nullptr); }
    Changed(const Changed&) = delete;
    Changed& operator=(const Changed&) = delete;

private:
    void set(const char* value) const
    {
        if (value)
            ::setenv(m_name, value, 1);
        else
            ::unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_before;
};

// GStreamer has no other way to be told that there are no folders to look through, and no list of
// what was found in them. The programs that this one starts are not to hear of it.
bool startWithoutPlugins()
{
    const Changed folders("GST_PLUGIN_SYSTEM_PATH_1_0", "");
    const Changed more("GST_PLUGIN_PATH_1_0", nullptr);
    const Changed old("GST_PLUGIN_PATH", nullptr);
    const Changed list("GST_REGISTRY_1_0", "/proc/self/none"); // where nobody can make a file
    return gst_init_check(nullptr, nullptr, nullptr);
}

bool started()
{
    static const bool is = startWithoutPlugins();
    return is;
}

} // namespace

void startGStreamer()
{
    started();
}

bool loadGstPlugins(std::initializer_list<const char*> names)
{
    if (!started())
        return false;
    for (const char* const name : names) {
        const auto file = std::string(VESKO_GST_PLUGINS "/libgst") + name + ".so";
        if (GstPlugin* const plugin = gst_plugin_load_file(file.c_str(), nullptr))
            gst_object_unref(plugin);
    }
    return true;
}

} // namespace vesko
