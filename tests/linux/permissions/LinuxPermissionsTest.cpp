// What the rows of the settings and the first run are told, while it changes.

#include "VeskoLinux/permissions/LinuxPermissions.h"

#include "tests/fakes/EventLoop.h"
#include "tests/linux/Desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

#include <gtest/gtest.h>
#include <signal.h>

namespace vesko {
namespace {

using namespace desktop;

const auto bus = QStringLiteral("org.a11y.Bus");

void switchAccessibilityTo(bool on)
{
    auto request = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
    request << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled")
            << QVariant::fromValue(QDBusVariant(on));
    EXPECT_EQ(QDBusConnection::sessionBus().call(request).type(), QDBusMessage::ReplyMessage);
}

class LinuxPermissionsTest : public testing::Test {
protected:
    LinuxPermissionsTest()
    {
        m_permissions.onChanged = [this] { ++m_changes; };
        EXPECT_TRUE(awaited(m_permissions.requestAccessibility()));
        EXPECT_TRUE(until([this] { return m_permissions.accessibility(); }));
        m_changes = 0;
    }

    LinuxPermissions m_permissions;
    int m_changes = 0;
};

TEST_F(LinuxPermissionsTest, hearsThatAccessibilityIsSwitched)
{
    switchAccessibilityTo(false);
    EXPECT_TRUE(until([this] { return !m_permissions.accessibility(); }));
    EXPECT_EQ(m_changes, 1);
    switchAccessibilityTo(true);
    EXPECT_TRUE(until([this] { return m_permissions.accessibility(); }));
    EXPECT_EQ(m_changes, 2);
}

TEST_F(LinuxPermissionsTest, hearsThatTheBusHasGoneAndComesBack)
{
    const auto process = QDBusConnection::sessionBus().interface()->servicePid(bus).value();
    ASSERT_EQ(kill(pid_t(process), SIGKILL), 0);
    EXPECT_TRUE(until([this] { return !m_permissions.accessibility(); }));
    EXPECT_TRUE(awaited(m_permissions.requestAccessibility()));
    EXPECT_TRUE(until([this] { return m_permissions.accessibility(); }));
}

} // namespace
} // namespace vesko
