#include <QCoreApplication>

#include <gtest/gtest.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
// GLib replaces its first table of names, made while the program is being loaded, when it grows
// and never frees the old one. Telling it from GLib's other memory would take whole stacks, and a
// speech model is so many pieces of memory that this makes each recognition take minutes.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libglib-2.0.so";
}
#endif
#endif

// The recogniser comes back through an event loop.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
