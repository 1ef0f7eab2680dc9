#include <QGuiApplication>

#include <gtest/gtest.h>

// The adapters need an event loop, and the clipboard needs Qt's connection to the X server.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
