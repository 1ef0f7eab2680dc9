#include "tests/app/views/Layout.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace vesko {
namespace {

std::vector<std::string> flawsOfQml(const char* body)
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nWindow { width: 200; height: 100; visible: true\n"
            + QByteArray(body) + "\n}",
        QUrl());
    const std::unique_ptr<QObject> made(component.create());
    auto* const window = qobject_cast<QQuickWindow*>(made.get());
    EXPECT_NE(window, nullptr) << component.errorString().toStdString();
    window->grabWindow();
    return flawsOf(*window);
}

TEST(Layout, findsWhatCannotBeRead)
{
    const struct {
        const char* described;
        const char* qml;
        const char* flaw;
    } rows[] = {
        { "elided", "Text { width: 40; text: 'some words'; elide: Text.ElideRight }", "is elided" },
        { "cut off", "Item { width: 40; clip: true; Text { width: 40; text: 'some words' } }",
            "is wider than its place" },
        { "out of the window", "Text { x: 150; text: 'several words more' }", "sticks out" },
        { "below the window", "Text { y: 95; text: 'words' }", "sticks out" },
        { "one in the other", "Text { text: 'words' } Text { x: 5; y: 3; text: 'others' }",
            "stands in" },
    };
    for (const auto& row : rows)
        EXPECT_THAT(flawsOfQml(row.qml), testing::Contains(testing::HasSubstr(row.flaw)))
            << row.described;
}

TEST(Layout, isContentWithWhatCanBeRead)
{
    EXPECT_THAT(flawsOfQml("Column { Text { text: 'words' } Text { text: 'others' } }"),
        testing::IsEmpty());
    EXPECT_THAT(flawsOfQml("Flickable { width: 100; height: 50; contentHeight: 500;"
                           " Text { y: 400; text: 'words' } }"),
        testing::IsEmpty());
    EXPECT_THAT(flawsOfQml("Text { x: 150; visible: false; text: 'several words more' }"),
        testing::IsEmpty());
}

} // namespace
} // namespace vesko
