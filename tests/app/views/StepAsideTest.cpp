// Where the floating control goes while it would lie on what the user wants to press.

#include "VeskoApp/views/StepAside.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <gtest/gtest.h>

namespace vesko {

namespace {

const QRect screen(0, 0, 800, 600);
const QRect corner(720, 520, 56, 56); // the button at first, 24 points from the edges

struct Taken {
    const char* description;
    std::vector<QRect> taken;
    std::optional<QPoint> place;
};

void PrintTo(const Taken& data, std::ostream* os)
{
    *os << data.description;
}

class FreePlace : public testing::TestWithParam<Taken> { };

TEST_P(FreePlace, IsTheNearestAlongTheEdges)
{
    EXPECT_EQ(StepAside::freePlace(corner, screen, GetParam().taken), GetParam().place);
}

INSTANTIATE_TEST_SUITE_P(StepAside, FreePlace,
    testing::Values(Taken{ "nothing is there", {}, corner.topLeft() },
        Taken{ "a button elsewhere", { { 100, 100, 80, 30 } }, corner.topLeft() },
        Taken{ "a button that ends just above it", { { 720, 480, 56, 34 } }, corner.topLeft() },
        Taken{ "a button under it", { { 730, 530, 60, 34 } }, QPoint(668, 520) },
        Taken{ "a row of buttons under it: up", { { 400, 530, 400, 34 } }, QPoint(720, 444) },
        Taken{ "a wide and high button: to the far end", { { 30, 30, 770, 570 } }, std::nullopt },
        Taken{ "the whole right side", { { 400, 0, 400, 600 } }, QPoint(332, 520) },
        Taken{ "everything", { screen }, std::nullopt }));

TEST(FreePlaceOfASmallScreen, IsNotBeyondIt)
{
    EXPECT_EQ(StepAside::freePlace({ 24, 24, 56, 56 }, { 0, 0, 60, 60 }, {}), QPoint(24, 24));
}

TEST(TakenPlaces, AreThoseThatCanBePressedAndSeen)
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(R"(
        import QtQuick
        Window {
            width: 400; height: 300
            Item { x: 10; y: 10; width: 50; height: 20; activeFocusOnTab: true }
            Item { x: 10; y: 40; width: 50; height: 20 } // nothing to press
            Item { x: 10; y: 70; width: 50; height: 20; activeFocusOnTab: true; visible: false }
            Item { x: 10; y: 100; width: 50; height: 20; activeFocusOnTab: true; enabled: false }
            Item { opacity: 0; Item { width: 50; height: 20; activeFocusOnTab: true } }
            Item {
                x: 100; y: 100; width: 100; height: 50; clip: true
                Item { y: 40; width: 50; height: 20; activeFocusOnTab: true } // half of it
                Item { y: 80; width: 50; height: 20; activeFocusOnTab: true } // scrolled away
            }
            Item { x: 200; width: 200; height: 300; activeFocusOnTab: true } // a text
        })",
        {});
    const std::unique_ptr<QObject> made(component.create());
    auto* const window = qobject_cast<QQuickWindow*>(made.get());
    ASSERT_TRUE(window) << component.errorString().toStdString();
    window->setPosition(1000, 500);

    EXPECT_EQ(StepAside::taken(*window),
        (std::vector{ QRect(1010, 510, 50, 20), QRect(1100, 640, 50, 10) }));
}

} // namespace

} // namespace vesko
