// A list to choose from, by mouse, by keys and by what is typed.

#include "VeskoApp/views/PickerRows.h"
#include "tests/fakes/EventLoop.h"

#include <QAbstractItemModelTester>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QVariantList languages()
{
    QVariantList rows;
    for (const auto& [tag, name] : { std::pair{ "auto", "Automatic" }, { "ar", "Arabic" },
             { "zh", "Chinese" }, { "cs", "Czech" }, { "nl", "Dutch" }, { "en", "English" },
             { "fr", "Français" }, { "de", "German" }, { "it", "Italian" }, { "ru", "Russian" },
             { "be", "Belarusian" }, { "es", "Spanish (Latin America)" } })
        rows << QVariantMap{ { QStringLiteral("tag"), QString::fromUtf8(tag) },
            { QStringLiteral("name"), QString::fromUtf8(name) } };
    return rows;
}

class PickerRowsTest : public testing::Test {
protected:
    PickerRowsTest()
    {
        rows.setTextRole(QStringLiteral("name"));
        rows.setChoices(languages());
    }
    std::vector<std::string> shown(const char* query)
    {
        rows.setQuery(QString::fromUtf8(query));
        std::vector<std::string> texts;
        for (int row = 0; row < rows.rowCount(); ++row)
            texts.push_back(rows.data(rows.index(row), PickerRows::label).toString().toStdString());
        return texts;
    }

    PickerRows rows;
    QAbstractItemModelTester tester{ &rows };
};

TEST_F(PickerRowsTest, ShowWhatHoldsAllThatIsTyped)
{
    EXPECT_EQ(shown("").size(), 12U);
    EXPECT_THAT(shown("russ"), ElementsAre("Russian"));
    EXPECT_THAT(shown("RUS"), ElementsAre("Russian", "Belarusian"));
    EXPECT_THAT(shown("latin span"), ElementsAre("Spanish (Latin America)"));
    EXPECT_THAT(shown("francais"), ElementsAre("Français"));
    EXPECT_THAT(shown("zh"), ElementsAre("Chinese")) << "its tag";
    EXPECT_THAT(shown("klingon"), IsEmpty());
}

TEST_F(PickerRowsTest, KnowWhichChoiceEachIs)
{
    shown("rus");
    EXPECT_EQ(rows.placeOf(0), 9);
    EXPECT_EQ(rows.placeOf(2), -1);
    EXPECT_EQ(rows.rowOf(10), 1);
    EXPECT_EQ(rows.rowOf(5), -1) << "English isn't shown";
    EXPECT_EQ(rows.text(5), QStringLiteral("English")) << "shown or not";
    EXPECT_EQ(rows.text(-1), QString());
    EXPECT_EQ(rows.text(12), QString());
    EXPECT_EQ(rows.nextFrom(-1, QStringLiteral("A")), 0);
    EXPECT_EQ(rows.nextFrom(0, QStringLiteral("a")), 1);
    EXPECT_EQ(rows.nextFrom(1, QStringLiteral("a")), 0) << "from the end on from the first";
    EXPECT_EQ(rows.nextFrom(3, QStringLiteral("x")), -1);
}

TEST_F(PickerRowsTest, StayAsTheyAreWhereTheChoicesAreTheSame)
{
    int resets = 0;
    QObject::connect(&rows, &QAbstractItemModel::modelReset, [&] { ++resets; });
    rows.setChoices(languages());
    EXPECT_EQ(resets, 0);
    rows.setChoices(QVariantList{ QStringLiteral("one") });
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(rows.total(), 1);
}

TEST_F(PickerRowsTest, MayBePlainTextsAndMany)
{
    QVariantList many;
    for (int i = 0; i < 250'000; ++i)
        many << QStringLiteral("model %1").arg(i);
    rows.setTextRole({});
    rows.setChoices(many);
    EXPECT_EQ(rows.rowCount(), 250'000);
    EXPECT_THAT(shown("249999"), ElementsAre("model 249999"));
}

class PickerTest : public testing::Test {
protected:
    PickerTest()
    {
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(&engine);
        component.setData(R"(
            import QtQuick
            import Vesko.Views

            Window {
                id: window

                property int activations: 0
                property alias rows: picker.choices
                property alias current: picker.currentIndex

                width: 500; height: 500; visible: true

                Picker {
                    id: picker

                    name: "Spoken language"
                    textRole: "name"
                    onActivated: index => {
                        currentIndex = index;
                        ++window.activations;
                    }
                }
            })",
            QUrl());
        m_object.reset(component.create());
        EXPECT_NE(m_object, nullptr) << component.errorString().toStdString();
        window = qobject_cast<QQuickWindow*>(m_object.get());
        window->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        picker = window->contentItem()->childItems().first();
        window->setProperty("rows", languages());
        window->setProperty("current", 5);
        picker->forceActiveFocus();
    }
    void press(Qt::Key key) { QTest::keyClick(window, key); }
    void type(const char* text)
    {
        for (const char letter : std::string(text))
            QTest::keyClick(window, letter);
        drainEvents();
    }
    std::string chosen() const { return picker->property("displayText").toString().toStdString(); }
    int activations() const { return window->property("activations").toInt(); }
    // Whether the list is open, and has the keyboard.
    bool open() const { return window->activeFocusItem() != picker; }

    QQmlEngine engine;
    std::unique_ptr<QObject> m_object;
    QQuickWindow* window;
    QQuickItem* picker;
};

TEST_F(PickerTest, IsSearchedByWhatIsTyped)
{
    EXPECT_EQ(chosen(), "English");
    press(Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return open(); }));
    type("russ");
    press(Qt::Key_Return);
    EXPECT_EQ(chosen(), "Russian");
    EXPECT_EQ(activations(), 1);
    ASSERT_TRUE(eventually([&] { return !open(); }));
    // And all are there the next time.
    press(Qt::Key_Space);
    ASSERT_TRUE(eventually([&] { return open(); }));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(chosen(), "Belarusian");
}

TEST_F(PickerTest, OpensWithTheLetterThatIsTypedFirst)
{
    type("g");
    ASSERT_TRUE(eventually([&] { return open(); }));
    type("erm");
    press(Qt::Key_Enter);
    EXPECT_EQ(chosen(), "German");
}

TEST_F(PickerTest, LeavesTheChoiceWhereNothingIsFoundOrTheListIsLeft)
{
    type("klingon");
    ASSERT_TRUE(eventually([&] { return open(); }));
    press(Qt::Key_Return);
    EXPECT_EQ(chosen(), "English");
    ASSERT_TRUE(eventually([&] { return !open(); }));
    press(Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return open(); }));
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    ASSERT_TRUE(eventually([&] { return !open(); }));
    EXPECT_EQ(chosen(), "English");
    EXPECT_EQ(activations(), 0);
}

TEST_F(PickerTest, WalksThroughItsChoicesWhileItIsClosed)
{
    press(Qt::Key_Down);
    EXPECT_EQ(chosen(), "Français");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(chosen(), "Dutch");
    press(Qt::Key_End);
    press(Qt::Key_Down);
    EXPECT_EQ(chosen(), "Spanish (Latin America)");
    EXPECT_EQ(activations(), 4);
}

TEST_F(PickerTest, TakesKeysThatTypeNothingForNoLetter)
{
    for (const auto key : { Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete }) {
        press(key);
        drainEvents();
        EXPECT_FALSE(open()) << key;
    }
    type("g");
    ASSERT_TRUE(eventually([&] { return open(); }));
}

TEST_F(PickerTest, GoesToTheNextWithThatLetterWhereThereAreFew)
{
    window->setProperty("rows", languages().mid(0, 4));
    window->setProperty("current", 0);
    type("a");
    EXPECT_EQ(chosen(), "Arabic");
    EXPECT_FALSE(open());
    press(Qt::Key_Return);
    ASSERT_TRUE(eventually([&] { return open(); }));
    type("c");
    press(Qt::Key_Space);
    EXPECT_EQ(chosen(), "Chinese");
    ASSERT_TRUE(eventually([&] { return !open(); }));
}

} // namespace
} // namespace vesko
