// In the session that TrayStatusItemTest.cpp sets up for the whole program.

#include "VeskoLinux/desktop/DBusRunningInstance.h"
#include "tests/fakes/EventLoop.h"
#include "tests/linux/PrivateBus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string redirect = "com.googleusercontent.apps.1-a:/oauth2redirect?state=x&code=4%2F0";

struct DBusRunningInstanceTest : testing::Test {
    DBusRunningInstance first;
    int activated = 0;
    std::vector<std::string> opened;

    DBusRunningInstanceTest()
    {
        first.onActivate = [this] { ++activated; };
        first.onOpen = [this](const std::vector<std::string>& addresses) {
            opened.insert(opened.end(), addresses.begin(), addresses.end());
        };
    }
    // Lets the first one answer meanwhile.
    static bool claim(DBusRunningInstance& second, const std::vector<std::string>& addresses = {},
        bool quiet = false)
    {
        auto claimed
            = std::async(std::launch::async, [&] { return second.claim(addresses, quiet); });
        EXPECT_TRUE(eventually([&] {
            return claimed.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        }));
        return claimed.get();
    }
    // What another program gets when it does this with the object `vesko`.
    static std::string elsewhere(const char* what)
    {
        auto answer = std::async(std::launch::async, [&] {
            QProcess program;
            program.setProcessChannelMode(QProcess::MergedChannels);
            program.start(QStringLiteral("/usr/bin/python3"),
                { QStringLiteral("-c"),
                    QStringLiteral("import dbus\n"
                                   "vesko = dbus.SessionBus().get_object('app.vesko.Vesko',"
                                   " '/app/vesko/Vesko')\n"
                                   "application = dbus.Interface(vesko,"
                                   " 'org.freedesktop.Application')\n"
                                   "print(%1)")
                        .arg(QString::fromUtf8(what)) });
            program.waitForFinished(PrivateBus::deadline);
            return program.readAll().toStdString();
        });
        EXPECT_TRUE(eventually(
            [&] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
        return answer.get();
    }
};

TEST_F(DBusRunningInstanceTest, theFirstIsTheOne)
{
    EXPECT_TRUE(first.claim({ redirect }));
    drainEvents();
    EXPECT_EQ(activated, 0);
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(DBusRunningInstanceTest, aSecondStartShowsTheFirst)
{
    ASSERT_TRUE(first.claim({}));
    DBusRunningInstance second;
    EXPECT_FALSE(claim(second));
    EXPECT_EQ(activated, 1);
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(DBusRunningInstanceTest, aSecondStartHandsItsAddressesOver)
{
    ASSERT_TRUE(first.claim({}));
    DBusRunningInstance second;
    EXPECT_FALSE(claim(second, { redirect, "other:" }));
    EXPECT_EQ(activated, 0);
    EXPECT_THAT(opened, ElementsAre(redirect, "other:"));
}

TEST_F(DBusRunningInstanceTest, aQuietSecondStartTellsNothingButItsAddresses)
{
    ASSERT_TRUE(first.claim({}));
    DBusRunningInstance second;
    EXPECT_FALSE(claim(second, {}, true));
    EXPECT_EQ(activated, 0);
    DBusRunningInstance third;
    EXPECT_FALSE(claim(third, { redirect }, true));
    EXPECT_EQ(activated, 0);
    EXPECT_THAT(opened, ElementsAre(redirect));
}

TEST_F(DBusRunningInstanceTest, aQuietStartIsTheOneIfItIsTheFirst)
{
    EXPECT_TRUE(first.claim({}, true));
}

TEST_F(DBusRunningInstanceTest, theNameIsFreeAgainAfterTheEnd)
{
    {
        DBusRunningInstance earlier;
        ASSERT_TRUE(earlier.claim({}));
    }
    EXPECT_TRUE(first.claim({}));
}

TEST_F(DBusRunningInstanceTest, oneThatEndsWithoutAnAnswerIsFollowed)
{
    auto earlier = std::make_unique<DBusRunningInstance>();
    ASSERT_TRUE(earlier->claim({}));
    auto claimed = std::async(std::launch::async, [&] { return first.claim({}); });
    earlier.reset(); // before this thread has looked at what it was told
    EXPECT_TRUE(claimed.get());
}

TEST_F(DBusRunningInstanceTest, otherProgramsCallItAsAnyApplication)
{
    ASSERT_TRUE(first.claim({}));
    EXPECT_EQ(elsewhere("application.Activate({'desktop-startup-id': 'x'})"), "None\n");
    EXPECT_EQ(activated, 1);
    EXPECT_EQ(elsewhere("application.Open(['one:', 'two:'], {})"), "None\n");
    EXPECT_THAT(opened, ElementsAre("one:", "two:"));
    EXPECT_THAT(
        elsewhere("application.ActivateAction('explode', [], {})"), HasSubstr("no such action"));
    EXPECT_EQ(activated, 1);
}

TEST_F(DBusRunningInstanceTest, nothingElseIsOpenToThem)
{
    ASSERT_TRUE(first.claim({}));
    const auto described
        = elsewhere("vesko.Introspect(dbus_interface='org.freedesktop.DBus.Introspectable')");
    EXPECT_THAT(described, HasSubstr("org.freedesktop.Application"));
    EXPECT_THAT(described, Not(HasSubstr("deleteLater")));
    EXPECT_THAT(elsewhere("application.Open('no list', 5)"), HasSubstr("Error"));
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(DBusRunningInstanceTest, withoutABusItIsTheOne)
{
    const auto address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    EXPECT_TRUE(first.claim({}));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

} // namespace
} // namespace vesko
