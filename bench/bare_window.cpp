// The yardstick for start, memory and idling: a Qt Quick program that does nothing but show a
// window, drawn in the same way as Vesko's.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
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
