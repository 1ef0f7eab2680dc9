#include "VeskoApp/views/LateListener.h"

#include "tests/fakes/EventLoop.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace vesko {
namespace {

std::vector<std::pair<QAccessible::Event, QObject*>> heard;

// A window with a field that has the keyboard, and somebody who hears what is told of it.
class LateListenerTest : public testing::Test {
protected:
    LateListenerTest()
    {
        heard.clear();
        listen(false);
        QAccessible::installUpdateHandler(
            [](QAccessibleEvent* event) { heard.emplace_back(event->type(), event->object()); });
        QQmlComponent component(&engine);
        component.setData(
            "import QtQuick\n Window { TextInput { focus: true; Accessible.name: \"Field\" } }",
            QUrl());
        object.reset(component.create());
        window = qobject_cast<QQuickWindow*>(object.get());
    }
    ~LateListenerTest() override
    {
        listen(false);
        QAccessible::installUpdateHandler(nullptr);
    }
    // Whether somebody does.
    static void listen(bool active)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
    }
    void open()
    {
        window->show();
        window->requestActivate();
        ASSERT_TRUE(eventually([this] { return QGuiApplication::focusWindow() == window; }));
        drainEvents();
    }
    // What is told once somebody listens.
    auto told()
    {
        heard.clear();
        listen(true);
        drainEvents();
        return heard;
    }

    QQmlEngine engine;
    std::unique_ptr<QObject> object;
    QQuickWindow* window;
    LateListener listener{ nullptr };
};

TEST_F(LateListenerTest, HearsWhereTheKeyboardIs)
{
    open();
    const auto events = told();
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(
        events[0], (std::pair<QAccessible::Event, QObject*>(QAccessible::StateChanged, window)));
    EXPECT_EQ(events[1],
        (std::pair<QAccessible::Event, QObject*>(QAccessible::Focus, window->activeFocusItem())));
}

TEST_F(LateListenerTest, HearsNothingOfAWindowThatHasNotTheKeyboard)
{
    EXPECT_TRUE(told().empty());
}

} // namespace
} // namespace vesko
