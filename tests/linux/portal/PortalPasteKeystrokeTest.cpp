#include "VeskoLinux/portal/PortalPasteKeystroke.h"

#include "tests/fakes/FakeFocusedField.h"
#include "tests/fakes/FakeSessionState.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/TestClock.h"
#include "tests/linux/Desktop.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vesko {
namespace {

using namespace desktop;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Field final : public FieldElement {
public:
    bool equals(const FieldElement&) const override { return true; }
    bool isTerminal() const override { return false; }
};

// A desktop's portal that does as the test says.
class FakePortal final : public QDBusVirtualObject {
public:
    QString silentAt, refusesAt, failsAt; // names of methods
    uint version = 2;
    double userTakes = 0; // seconds to agree
    std::function<void()> onStart;
    std::vector<std::pair<int, uint>> keys; // as they moved
    QString shownToken; // what it was reminded of
    int opened = 0, closed = 0;
    int dropped = 0; // questions that were taken back

    explicit FakePortal(TestClock& clock)
        : m_clock(clock)
        , m_bus(QDBusConnection::connectToBus(
              QDBusConnection::SessionBus, QStringLiteral("fake-portal")))
    {
        m_bus.registerVirtualObject(
            QStringLiteral("/org/freedesktop/portal/desktop"), this, QDBusConnection::SubPath);
        EXPECT_TRUE(m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }
    ~FakePortal() override { QDBusConnection::disconnectFromBus(QStringLiteral("fake-portal")); }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        if (call.member() == failsAt)
            return m_bus.send(call.createErrorReply(QStringLiteral("app.test.No"), {}));
        if (call.member() == QStringLiteral("Close")) {
            ++(call.path().contains(QStringLiteral("/request/")) ? dropped : closed);
        } else if (call.member() == QStringLiteral("Get")) {
            m_bus.send(
                call.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(version)))));
        } else if (call.member() == QStringLiteral("NotifyKeyboardKeycode")) {
            keys.emplace_back(call.arguments()[2].toInt(), call.arguments()[3].toUInt());
            m_bus.send(call.createReply());
        } else {
            answer(call);
        }
        return true;
    }

private:
    void answer(const QDBusMessage& call)
    {
        const auto options = qdbus_cast<QVariantMap>(call.arguments().last());
        const QString request = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                                    .arg(call.service().mid(1).replace(u'.', u'_'),
                                        options[QStringLiteral("handle_token")].toString());
        m_bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        if (call.member() == silentAt)
            return;
        QVariantMap results;
        if (call.member() == QStringLiteral("CreateSession")) {
            ++opened;
            results.insert(QStringLiteral("session_handle"),
                QStringLiteral("/org/freedesktop/portal/desktop/session/test"));
        } else if (call.member() == QStringLiteral("SelectDevices")) {
            shownToken = options[QStringLiteral("restore_token")].toString();
        } else if (call.member() == QStringLiteral("Start")) {
            m_clock.turn(userTakes);
            if (onStart)
                onStart();
            results.insert(QStringLiteral("devices"), 1U);
            results.insert(QStringLiteral("restore_token"), QStringLiteral("token %1").arg(opened));
        }
        auto response = QDBusMessage::createSignal(
            request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        response << (call.member() == refusesAt ? 1U : 0U) << results;
        m_bus.send(response);
    }

    TestClock& m_clock;
    QDBusConnection m_bus;
};

class PortalPasteKeystrokeTest : public testing::Test {
protected:
    // Time passes in such steps meanwhile.
    bool paste(double seconds = 0.005) { return !obstacle(seconds); }
    std::optional<std::string> obstacle(double seconds = 0.005)
    {
        using Obstacle = std::optional<std::string>;
        std::optional<Obstacle> answer;
        const auto keep = [&answer](Eventual<Obstacle> from) -> Task<> { answer = co_await from; };
        TaskScope scope;
        scope.spawn(keep(m_paste.send(Field())));
        EXPECT_TRUE(until([&] {
            m_clock.turn(seconds);
            return answer.has_value();
        }));
        return answer.value_or("no answer");
    }

    // Returns when the session is open.
    void prepare()
    {
        const auto before = m_settings.get<std::string>("remoteDesktopToken");
        m_paste.prepare();
        EXPECT_TRUE(
            until([&] { return m_settings.get<std::string>("remoteDesktopToken") != before; }));
    }

    double secondsToRelease()
    {
        const double begin = m_clock.uptime();
        bool released = false;
        const auto keep = [&released](Eventual<std::monostate> from) -> Task<> {
            co_await from;
            released = true;
        };
        TaskScope scope;
        scope.spawn(keep(m_paste.keysReleased()));
        while (!released && m_clock.uptime() < begin + 5)
            m_clock.turn(0.01);
        return m_clock.uptime() - begin;
    }

    Program m_keyboard{ QStringLiteral("/usr/bin/python3"),
        { QStringLiteral("-c"),
            QStringLiteral("import sys; sys.path.insert(0, '%1'); from lib import hands;"
                           " hands.plug_in(); sys.stdin.read()")
                .arg(QStringLiteral(VESKO_HANDS)) } };
    TestClock m_clock;
    FakeSettingsStore m_settings;
    FakePortal m_portal{ m_clock };
    WaylandConnection m_connection;
    FakeSessionState m_session;
    bool m_shortcutDown = false;
    std::optional<double> m_shortcutHeld;
    FakeFocusedField m_fields;
    Eventual<bool> m_clipboardTaken = Eventual<bool>::of(true);
    PortalPasteKeystroke m_paste{ m_connection, m_session, m_clock, m_settings, m_fields,
        [this] { return m_shortcutDown ? m_clock.uptime() : m_shortcutHeld; },
        [this] { return m_clipboardTaken; } };
};

TEST_F(PortalPasteKeystrokeTest, typesTheShortcutInASessionThatEndsWithIt)
{
    // Until the user has a keyboard, nobody knows which key is the V.
    EXPECT_TRUE(until([this] { return paste(); }));
    EXPECT_THAT(m_portal.keys, ElementsAre(Pair(29, 1), Pair(47, 1), Pair(47, 0), Pair(29, 0)));
    EXPECT_TRUE(until([this] { return m_portal.closed == m_portal.opened; }));
}

TEST_F(PortalPasteKeystrokeTest, remindsTheDesktopOfTheUsersAnswer)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    const auto token = QStringLiteral("token %1").arg(m_portal.opened);
    EXPECT_TRUE(paste());
    EXPECT_EQ(m_portal.shownToken.toStdString(), token.toStdString());
}

TEST_F(PortalPasteKeystrokeTest, opensTheSessionWhileTheUserSpeaks)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    const int opened = m_portal.opened;
    prepare();
    m_paste.prepare();
    m_fields.reads.clear();
    EXPECT_TRUE(paste());
    EXPECT_EQ(m_portal.opened, opened + 1);
    EXPECT_THAT(m_fields.reads, IsEmpty()); // no time has passed in which the focus could go
    EXPECT_EQ(m_portal.keys.size(), 4U);
    EXPECT_TRUE(until([this] { return m_portal.closed == m_portal.opened; }));
}

TEST_F(PortalPasteKeystrokeTest, closesTheSessionWhenNoTextComes)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    m_paste.prepare();
    const int opened = m_portal.opened;
    m_paste.release(); // while it is being opened
    EXPECT_TRUE(until([&] { return m_portal.opened > opened && m_portal.closed > opened; }));

    prepare();
    m_paste.release();
    EXPECT_TRUE(until([this] { return m_portal.closed == m_portal.opened; }));
    EXPECT_THAT(m_portal.keys, IsEmpty());
    EXPECT_TRUE(paste());
}

TEST_F(PortalPasteKeystrokeTest, sendsNothingOnceTheDesktopHasEndedTheSession)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    prepare();
    m_portal.failsAt = QStringLiteral("NotifyKeyboardKeycode");
    EXPECT_EQ(obstacle(), "event_failed");
    EXPECT_THAT(m_portal.keys, IsEmpty());
    m_portal.failsAt.clear();
    EXPECT_TRUE(paste());
}

TEST_F(PortalPasteKeystrokeTest, typesNothingIfAnythingIsNotAsItShouldBe)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    const char* const methods[] = { "CreateSession", "SelectDevices", "Start" };
    for (const auto kind : { &FakePortal::silentAt, &FakePortal::refusesAt, &FakePortal::failsAt })
        for (const char* method : methods) {
            SCOPED_TRACE(method);
            m_portal.*kind = QString::fromLatin1(method);
            EXPECT_FALSE(paste(0.1));
            EXPECT_THAT(m_portal.keys, IsEmpty());
            m_portal.*kind = QString();
            EXPECT_TRUE(until([this] {
                m_clock.turn(31); // no question stays longer
                return paste();
            }));
            m_portal.keys.clear();
        }
}

TEST_F(PortalPasteKeystrokeTest, waitsAMomentForTheFingersOnTheShortcut)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    EXPECT_EQ(secondsToRelease(), 0.0); // nobody has pressed it for long

    m_shortcutDown = true;
    EXPECT_NEAR(secondsToRelease(), 0.6, 0.02);
    EXPECT_EQ(obstacle(), "keys_held");
    EXPECT_THAT(m_portal.keys, IsEmpty());

    m_shortcutDown = false;
    m_shortcutHeld = m_clock.uptime();
    EXPECT_NEAR(secondsToRelease(), 0.35, 0.02);
    EXPECT_TRUE(paste());
}

TEST_F(PortalPasteKeystrokeTest, waitsUntilTheCompositorHasTheClipboard)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    m_clipboardTaken = {};
    Timer later(m_clock);
    later.start(0.1, [this] { m_clipboardTaken.set(true); });
    EXPECT_NEAR(secondsToRelease(), 0.1, 0.02);
    EXPECT_TRUE(paste());

    m_portal.keys.clear();
    m_clipboardTaken = Eventual<bool>::of(false);
    EXPECT_EQ(secondsToRelease(), 0.0);
    EXPECT_EQ(obstacle(), "event_failed");
    EXPECT_THAT(m_portal.keys, IsEmpty());
}

TEST_F(PortalPasteKeystrokeTest, typesNothingWhereTheFocusWentMeanwhile)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    const FieldReading meant = m_fields.reading;
    const struct {
        const char* what;
        std::function<void(FieldReading&)> change;
    } cases[] = {
        { "another field", [](auto& now) { now.element = std::make_shared<FakeFieldElement>(2); } },
        { "another program", [](auto& now) { now.frontmost = 12; } },
        { "nobody knows", [](auto& now) { now.seesFrontmost = false; } },
        { "no field", [](auto& now) { now.element = nullptr; } },
        { "the field has lost the keyboard", [](auto& now) { now.focused = false; } },
    };
    for (const auto& [what, change] : cases) {
        SCOPED_TRACE(what);
        m_fields.reading = meant;
        m_portal.onStart = [&] { change(m_fields.reading); };
        EXPECT_EQ(obstacle(), "app_changed");
    }
    EXPECT_THAT(m_portal.keys, IsEmpty());
}

TEST_F(PortalPasteKeystrokeTest, typesNothingIntoALockedSession)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    m_session.isLocked = true;
    EXPECT_EQ(m_paste.keyboardTaken(), "session_locked");
    EXPECT_EQ(obstacle(), "session_locked");
    m_session.isLocked = false;
    m_portal.onStart = [this] { m_session.isLocked = true; };
    EXPECT_EQ(obstacle(), "session_locked");
    EXPECT_THAT(m_portal.keys, IsEmpty());
}

TEST_F(PortalPasteKeystrokeTest, typesNothingBehindADialog)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.keys.clear();
    m_portal.userTakes = 3;
    EXPECT_EQ(obstacle(), "still_asked");
    EXPECT_THAT(m_portal.keys, IsEmpty());
    m_portal.userTakes = 0;
    EXPECT_TRUE(until([this] { return m_portal.closed == m_portal.opened; }));
    EXPECT_TRUE(paste());
}

TEST_F(PortalPasteKeystrokeTest, saysThatTheUserHasRefused)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.refusesAt = QStringLiteral("Start");
    EXPECT_EQ(obstacle(), "not_allowed");
    m_portal.refusesAt.clear();
    EXPECT_TRUE(paste());
}

TEST_F(PortalPasteKeystrokeTest, takesBackAQuestionThatNobodyRemembersTheAnswerOf)
{
    EXPECT_TRUE(until([this] { return paste(); }));
    m_portal.silentAt = QStringLiteral("Start");
    for (const uint version : { 1U, 2U }) {
        SCOPED_TRACE(version);
        m_portal.version = version;
        m_portal.dropped = 0;
        const int opened = m_portal.opened;
        EXPECT_EQ(obstacle(0.05), "still_asked");
        EXPECT_EQ(m_paste.keyboardTaken().has_value(), version == 2);
        EXPECT_EQ(m_portal.opened, opened + 1);
        if (version == 1)
            EXPECT_TRUE(until([&] { return m_portal.dropped == 1; }));
        else
            EXPECT_EQ(m_portal.dropped, 0);
    }
}

} // namespace
} // namespace vesko
