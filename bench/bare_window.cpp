// The yardstick for start, memory and idling: a Qt Quick program that does nothing but show a
// window, with everything as Qt has it by default. With an argument it is drawn without a graphics
// driver, as Vesko's windows are, which tells how much of a difference comes from that.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
    if (argc > 1)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "Window { width: 340; height: 60; visible: true; title: \"bare\"\n"
                      "    Text { anchors.centerIn: parent; text: \"bare\" } }",
        QUrl());
    const std::unique_ptr<QObject> root(component.create());
    auto* const window = qobject_cast<QQuickWindow*>(root.get());
    if (!window)
        return 1;
    QObject::connect(window, &QQuickWindow::frameSwapped, window, [shown = false]() mutable {
        if (!shown)
            std::puts("ready");
        shown = true;
        std::fflush(stdout);
    });
    return QGuiApplication::exec();
}
