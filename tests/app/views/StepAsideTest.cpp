// Where the floating control goes while it would lie on what the user wants to press.

#include "VeskoApp/views/StepAside.h"

#include "tests/app/AppModelTest.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

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

// The control is in the corner of the screen, and a button of a window of ours below it.
class StepAsideTest : public AppModelTest {
protected:
    void open()
    {
        AppModelTest::open();
        control = std::make_unique<CaptureControl>(
            machine.all, model->capture(), model->library(), model->status());
        auto panel = std::make_unique<QWindow>();
        panel->setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
        panel->resize(240, 236);
        control->pointer = [this] { return pointer; };
        control->setWindow(std::move(panel));
        control->show(true);
        connection
            = QObject::connect(control.get(), &CaptureControl::sidesChanged, [this] { cut(); });
        cut();
        home = control->face();
        aside = std::make_unique<StepAside>(*control, machine.clock, nullptr);

        window.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        button.setParentItem(window.contentItem());
        button.setActiveFocusOnTab(true);
        cover(home);
        window.show();
    }
    ~StepAsideTest() override { QObject::disconnect(connection); }

    // As the control's window says it is drawn: the button alone.
    void cut()
    {
        const auto side = CaptureControl::buttonSize();
        control->cut({ QVariantMap{ { QStringLiteral("x"), control->atLeft() ? 0 : 240 - side },
            { QStringLiteral("y"), control->atTop() ? 0 : 236 - side },
            { QStringLiteral("width"), side }, { QStringLiteral("height"), side } } });
    }
    void cover(const QRect& place)
    {
        button.setPosition(place.topLeft() - window.position());
        button.setSize(place.size());
    }
    // The user works in the window, and what it shows has come to rest.
    void workThere()
    {
        window.requestActivate();
        ASSERT_TRUE(eventually([this] { return QGuiApplication::focusWindow() == &window; }));
        rest();
    }
    void rest()
    {
        drainEvents();
        machine.clock.turn(0.2);
    }
    void workElsewhere()
    {
        other.show();
        other.requestActivate();
        ASSERT_TRUE(eventually([this] { return QGuiApplication::focusWindow() == &other; }));
        rest();
    }
    bool isCovering() const
    {
        return control->face().intersects(
            QRect(window.position() + button.position().toPoint(), button.size().toSize()));
    }
    void drag(const QPoint& by)
    {
        pointer = { 100, 100 };
        control->press(pointer);
        pointer += by;
        control->drag(pointer);
        control->release(pointer);
    }

    std::unique_ptr<CaptureControl> control;
    std::unique_ptr<StepAside> aside;
    QMetaObject::Connection connection;
    QPointF pointer;
    QRect home;
    QQuickWindow window;
    QQuickItem button;
    QWindow other;
};

TEST_F(StepAsideTest, ItStandsAsideAsLongAsTheUserWorksThere)
{
    open();
    EXPECT_EQ(control->face(), home);
    workThere();
    EXPECT_FALSE(isCovering());
    EXPECT_EQ(machine.settings.value("capturePanelOrigin"), std::nullopt);
    workElsewhere();
    EXPECT_EQ(control->face(), home);
}

TEST_F(StepAsideTest, ItComesBackWhenItsPlaceIsFree)
{
    open();
    workThere();
    EXPECT_NE(control->face(), home);
    button.setEnabled(false);
    Q_EMIT window.frameSwapped();
    rest();
    EXPECT_EQ(control->face(), home);
}

TEST_F(StepAsideTest, ItStaysWhileADictationGoesOn)
{
    open();
    button.setEnabled(false);
    workThere();
    dictate();
    button.setEnabled(true);
    Q_EMIT window.frameSwapped();
    rest();
    EXPECT_EQ(control->face(), home);
    finish();
    rest();
    EXPECT_FALSE(isCovering());
}

TEST_F(StepAsideTest, ItStaysWhereItIsDraggedTo)
{
    open();
    workThere();
    drag({ -60, 0 });
    const auto there = control->face();
    cover(there);
    Q_EMIT window.frameSwapped();
    rest();
    EXPECT_EQ(control->face(), there);
}

TEST_F(StepAsideTest, WithoutAFreePlaceItStays)
{
    open();
    std::vector<std::unique_ptr<QQuickItem>> rows;
    for (int y = 0; y < window.height(); y += 100) {
        auto& row = *rows.emplace_back(std::make_unique<QQuickItem>(window.contentItem()));
        row.setPosition(QPointF(0, y));
        row.setSize(QSizeF(window.width(), 100));
        row.setActiveFocusOnTab(true);
    }
    workThere();
    EXPECT_EQ(control->face(), home);
}

} // namespace

} // namespace vesko
