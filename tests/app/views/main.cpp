#include <QGuiApplication>
#include <QQuickWindow>

#include <gtest/gtest.h>

#ifdef __has_feature
#if __has_feature(address_sanitizer)
// Qt Quick keeps the icons that were drawn, and forgets them at the end.
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}
#endif
#endif

int main(int argc, char** argv)
{
    // The screen is large enough for every window, at twice its size too.
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VESKO_SCREEN);
    testing::InitGoogleTest(&argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
