#include "VeskoLinux/desktop/TrayStatusItem.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/PrivateDisplay.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPixmap>
#include <QTimer>

#include <gtest/gtest.h>

// Qt keeps what it once learnt of the watcher's interface, and forgets it at the end.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt6DBus\n";
}

namespace vesko {
namespace {

// One X server, bus and application for all tests: Qt has one session bus in a process.
class Desktop : public testing::Environment {
public:
    void SetUp() override
    {
        m_display = std::make_unique<PrivateDisplay>();
        m_bus = std::make_unique<PrivateBus>();
        // The addresses of both buses are read once, with the first use of either.
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
        qputenv("QT_QPA_PLATFORM", "xcb");
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = { name, nullptr };
        m_application = std::make_unique<QGuiApplication>(count, arguments);
    }
    void TearDown() override
    {
        m_application.reset();
        m_bus.reset();
        m_display.reset();
    }

private:
    std::unique_ptr<PrivateDisplay> m_display;
    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<QGuiApplication> m_application;
};

const auto* const desktop = testing::AddGlobalTestEnvironment(new Desktop);

// Lets the application work until this holds.
template <class Condition>
bool comes(Condition condition)
{
    QElapsedTimer timer;
    timer.start();
    QTimer tick; // what another process knows changes without an event here
    tick.start(5);
    while (!condition()) {
        if (timer.elapsed() >= PrivateBus::deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

class Host {
public:
    explicit Host(const QStringList& options)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        PrivateBus::begin(m_process, QStringLiteral(VESKO_STATUS_HOST), options);
        answer();
    }
    ~Host() { PrivateBus::end(m_process); }

    QJsonObject tell(const char* command)
    {
        m_process.write(QByteArray(command) + '\n');
        return QJsonDocument::fromJson(answer()).object();
    }
    QJsonObject shown() { return tell("read"); }
    QStringList menu()
    {
        QStringList titles;
        for (const auto& title : shown()[QStringLiteral("menu")].toArray())
            titles << title.toString();
        return titles;
    }
    int items() { return shown()[QStringLiteral("items")].toInt(); }

private:
    QByteArray answer()
    {
        if (!comes([&] {
                return m_process.canReadLine() || m_process.state() == QProcess::NotRunning;
            })
            || !m_process.canReadLine())
            throw std::runtime_error("the host gives no answer");
        return m_process.readLine();
    }

    QProcess m_process;
};

const QStringList hosted{ QStringLiteral("host") };

QIcon icon(QColor colour)
{
    QPixmap pixmap(22, 22);
    pixmap.fill(colour);
    return pixmap;
}

struct TrayStatusItemTest : testing::Test {
    TrayStatusItem item;

    void show()
    {
        item.setCapture(QStringLiteral("Start dictation"), true);
        item.show(icon(Qt::red), QStringLiteral("Vesko: Ready"));
    }
    void showOn(Host& host)
    {
        show();
        ASSERT_TRUE(comes([&] { return item.visible() && host.items() == 1; }));
    }
};

TEST_F(TrayStatusItemTest, isNotVisibleWithoutAPlaceForIt)
{
    show();
    EXPECT_FALSE(item.visible());
}

TEST_F(TrayStatusItemTest, appearsInAPlaceThatComesLater)
{
    show();
    Host host(hosted);
    EXPECT_TRUE(comes([&] { return item.visible() && host.items() == 1; }));
}

TEST_F(TrayStatusItemTest, waitsForAHostWhereThereIsOnlyAWatcher)
{
    show();
    Host host({});
    EXPECT_EQ(host.items(), 0);
    EXPECT_FALSE(item.visible());
    host.tell("host");
    EXPECT_TRUE(comes([&] { return item.visible() && host.items() == 1; }));
    host.tell("unhost");
    EXPECT_TRUE(comes([&] { return !item.visible(); }));
}

TEST_F(TrayStatusItemTest, showsIconToolTipAndExactlyThisMenu)
{
    Host host(hosted);
    showOn(host);
    EXPECT_EQ(host.shown()[QStringLiteral("toolTip")].toString(), QStringLiteral("Vesko: Ready"));
    EXPECT_EQ(host.shown()[QStringLiteral("colour")].toString(), QStringLiteral("ffff0000"));
    const QStringList expected{ QStringLiteral("Start dictation"), QStringLiteral("Open Vesko"),
        QStringLiteral("Settings…"), QStringLiteral("-"), QStringLiteral("Quit Vesko") };
    EXPECT_EQ(host.menu(), expected);
}

TEST_F(TrayStatusItemTest, followsWhatTheProgramSays)
{
    Host host(hosted);
    showOn(host);
    item.setCapture(QStringLiteral("Transcribing"), false);
    item.show(icon(Qt::blue), QStringLiteral("Vesko: Transcribing"));
    EXPECT_TRUE(
        comes([&] { return host.menu().value(0) == QStringLiteral("Transcribing (off)"); }));
    EXPECT_EQ(
        host.shown()[QStringLiteral("toolTip")].toString(), QStringLiteral("Vesko: Transcribing"));
    EXPECT_EQ(host.shown()[QStringLiteral("colour")].toString(), QStringLiteral("ff0000ff"));
    EXPECT_EQ(host.items(), 1);
}

TEST_F(TrayStatusItemTest, passesEveryClickOn)
{
    QStringList clicks;
    item.onCapture = [&] { clicks << QStringLiteral("capture"); };
    item.onOpen = [&] { clicks << QStringLiteral("open"); };
    item.onSettings = [&] { clicks << QStringLiteral("settings"); };
    item.onQuit = [&] { clicks << QStringLiteral("quit"); };
    Host host(hosted);
    showOn(host);
    for (const char* command : { "click Start dictation", "click Open Vesko", "click Settings…",
             "click Quit Vesko", "activate" }) {
        const auto before = clicks.size();
        host.tell(command);
        EXPECT_TRUE(comes([&] { return clicks.size() == before + 1; })) << command;
    }
    EXPECT_EQ(clicks.join(QLatin1Char(' ')), QStringLiteral("capture open settings quit open"));
}

TEST_F(TrayStatusItemTest, comesBackWhenThePlaceVanishesAndReturns)
{
    for (int round = 0; round < 3; ++round) {
        int opened = 0;
        item.onOpen = [&] { ++opened; };
        {
            Host host(hosted);
            showOn(host);
            EXPECT_EQ(host.menu().size(), 5);
            host.tell("click Open Vesko");
            EXPECT_TRUE(comes([&] { return opened == 1; }));
        }
        EXPECT_TRUE(comes([&] { return !item.visible(); }));
    }
}

} // namespace
} // namespace vesko
