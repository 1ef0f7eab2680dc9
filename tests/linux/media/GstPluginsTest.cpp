#include "VeskoLinux/media/GstPlugins.h"

#include <gst/gst.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace vesko {
namespace {

bool exists(const char* element)
{
    GstElementFactory* const factory = gst_element_factory_find(element);
    if (factory)
        gst_object_unref(factory);
    return factory;
}

// The first test, since GStreamer starts once.
TEST(GstPlugins, TheEnvironmentStaysAsTheUserHasIt)
{
    ::setenv("GST_PLUGIN_SYSTEM_PATH_1_0", "/of/the/user", 1);
    ::unsetenv("GST_REGISTRY_1_0");
    startGStreamer();
    EXPECT_STREQ(std::getenv("GST_PLUGIN_SYSTEM_PATH_1_0"), "/of/the/user");
    EXPECT_FALSE(std::getenv("GST_REGISTRY_1_0"));
}

TEST(GstPlugins, OnlyTheOnesThatAreAskedForAreThere)
{
    ASSERT_TRUE(loadGstPlugins({ "coreelements" }));
    EXPECT_TRUE(exists("queue"));
    EXPECT_FALSE(exists("volume"));
    ASSERT_TRUE(loadGstPlugins({ "coreelements", "volume" }));
    EXPECT_TRUE(exists("queue"));
    EXPECT_TRUE(exists("volume"));
}

TEST(GstPlugins, OneThatIsNotInstalledIsLeftOut)
{
    EXPECT_TRUE(loadGstPlugins({ "nosuchplugin", "audioconvert" }));
    EXPECT_TRUE(exists("audioconvert"));
}

} // namespace
} // namespace vesko
