// In the session that TrayStatusItemTest.cpp sets up for the whole program; its bus is the system's
// too.

#include "VeskoLinux/desktop/DesktopSession.h"
#include "tests/fakes/EventLoop.h"
#include "tests/linux/PrivateBus.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <optional>

namespace vesko {
namespace {

// The screen saver, the logind and the portal of a desktop. The first two say that the session is
// locked.
class SessionHost {
public:
    SessionHost()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        PrivateBus::begin(m_process, QStringLiteral(VESKO_SESSION_HOST), {});
        answer();
    }
    ~SessionHost() { PrivateBus::end(m_process); }

    // Whether somebody delays the machine's sleep, after this was done.
    bool tell(const char* command) { return told(command)[QStringLiteral("delays")].toBool(); }
    // How many programs the portal tells of the session.
    int monitors() { return told("monitors")[QStringLiteral("monitors")].toInt(); }
    // Whether all of them let the session end, after this was done.
    bool mayEnd(const char* command = "look")
    {
        return told(command)[QStringLiteral("answered")].toBool();
    }

private:
    QJsonObject told(const char* command)
    {
        m_process.write(QByteArray(command) + '\n');
        return answer();
    }
    QJsonObject answer()
    {
        if (!eventually([&] { return m_process.canReadLine(); }))
            throw std::runtime_error("the session's host gives no answer");
        return QJsonDocument::fromJson(m_process.readLine()).object();
    }

    QProcess m_process;
};

TEST(DesktopSession, WithoutAnyOfTheServicesNothingIsLocked)
{
    const DesktopSession session;
    drainEvents();
    EXPECT_FALSE(session.locked());
}

TEST(DesktopSession, IsLockedWhileTheScreenSaverOrLogindSaysSo)
{
    SessionHost host;
    const DesktopSession session;
    EXPECT_TRUE(eventually([&] { return session.locked(); })) << "since before we came";
    // Whoever says so alone is enough, though only one of them may have answered yet.
    host.tell("saver off");
    EXPECT_TRUE(eventually([&] { return session.locked(); }));
    host.tell("hint off");
    EXPECT_TRUE(eventually([&] { return !session.locked(); }));
    host.tell("saver on");
    EXPECT_TRUE(eventually([&] { return session.locked(); }));
    host.tell("gone");
    EXPECT_TRUE(eventually([&] { return !session.locked(); })) << "a saver that ends";
    host.tell("hint on");
    EXPECT_TRUE(eventually([&] { return session.locked(); }));
}

TEST(DesktopSession, HearsOfServicesThatComeLater)
{
    const DesktopSession session;
    drainEvents();
    const SessionHost host;
    EXPECT_TRUE(eventually([&] { return session.locked(); }));
}

TEST(DesktopSession, SleepAndShutdownWaitUntilAllIsKept)
{
    SessionHost host;
    DesktopSession session;
    std::optional<SessionState::Done> sleeping, ending;
    session.onSleep = [&](SessionState::Done done) { sleeping = std::move(done); };
    session.onEnd = [&](SessionState::Done done) { ending = std::move(done); };
    for (int time = 0; time < 2; ++time) {
        SCOPED_TRACE(time);
        EXPECT_TRUE(eventually([&] { return host.tell("delays"); }));
        host.tell("sleep on");
        EXPECT_TRUE(eventually([&] { return sleeping.has_value(); }));
        EXPECT_TRUE(host.tell("delays"));
        (*sleeping)();
        EXPECT_TRUE(eventually([&] { return !host.tell("delays"); }));
        sleeping.reset();
        host.tell("sleep off");
    }
    EXPECT_TRUE(eventually([&] { return host.tell("delays"); }));
    host.tell("shutdown on");
    EXPECT_TRUE(eventually([&] { return ending.has_value(); }));
    EXPECT_TRUE(host.tell("delays"));
    (*ending)();
    EXPECT_TRUE(eventually([&] { return !host.tell("delays"); }));
}

TEST(DesktopSession, ThePortalEndsTheSessionWhenAllIsKept)
{
    SessionHost host;
    DesktopSession session;
    std::optional<SessionState::Done> ending;
    session.onEnd = [&](SessionState::Done done) { ending = std::move(done); };
    for (const char* portal : { "as it is", "portal back" }) {
        SCOPED_TRACE(portal);
        host.tell(portal);
        ASSERT_TRUE(eventually([&] { return host.monitors() == 1; }));
        host.tell("end stay");
        drainEvents();
        EXPECT_FALSE(ending);
        EXPECT_FALSE(host.mayEnd("end ask"));
        EXPECT_TRUE(eventually([&] { return ending.has_value(); }));
        EXPECT_FALSE(host.mayEnd());
        (*ending)();
        EXPECT_TRUE(eventually([&] { return host.mayEnd(); }));
        ending.reset();
        host.tell("end force");
        drainEvents();
        EXPECT_FALSE(ending) << "all was kept before";
    }
}

TEST(DesktopSession, HearsOfAPortalThatComesLater)
{
    DesktopSession session;
    drainEvents();
    SessionHost host;
    EXPECT_TRUE(eventually([&] { return host.monitors() == 1; }));
}

TEST(DesktopSession, NobodyWhoListensIsNoReasonToWait)
{
    SessionHost host;
    const DesktopSession session;
    EXPECT_TRUE(eventually([&] { return host.tell("delays"); }));
    host.tell("sleep on");
    EXPECT_TRUE(eventually([&] { return !host.tell("delays"); }));
    ASSERT_TRUE(eventually([&] { return host.monitors() == 1; }));
    host.tell("end ask");
    EXPECT_TRUE(eventually([&] { return host.mayEnd(); }));
}

} // namespace
} // namespace vesko
