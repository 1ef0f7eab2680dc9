#include "VeskoLinux/media/GstPlugins.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
// GLib replaces its first table of names, made while the program is being loaded, when it grows
// and never frees the old one. To know it by the loader takes whole stacks. GStreamer's list of
// PulseAudio's devices keeps one finished request whenever it is asked for. libpulse now and then
// forgets a stream's question for the time when its connection ends meanwhile.
extern "C" const char* __asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:ld-linux\nleak:libgstpulseaudio\nleak:libpulse.so";
}
#endif
#endif

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    // With its whole stacks remembered this alone takes longer than a start may.
    vesko::loadGstPlugins({ "libav" });
    return RUN_ALL_TESTS();
}
