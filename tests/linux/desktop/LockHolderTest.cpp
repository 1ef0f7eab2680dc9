#include "VeskoLinux/desktop/LockHolder.h"

#include "tests/linux/PrivateBus.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

struct LockHolderTest : testing::Test {
    QTemporaryDir folder;
    QProcess other;

    ~LockHolderTest() override { PrivateBus::end(other); }

    std::filesystem::path file() const
    {
        return folder.filePath(QStringLiteral("x")).toStdString();
    }
    // Another process has the lock, and nothing in its environment but this.
    void lock(const QStringList& environment)
    {
        const auto held = QStringLiteral("import fcntl, sys; file = open('%1', 'w');"
                                         " fcntl.flock(file, fcntl.LOCK_EX); print(flush=True);"
                                         " sys.stdin.read()")
                              .arg(QString::fromStdString(file().string()));
        PrivateBus::begin(other, QStringLiteral("env"),
            QStringList{ QStringLiteral("-i") } + environment
                + QStringList{ QStringLiteral("/usr/bin/python3"), QStringLiteral("-c"), held });
        while (!other.canReadLine())
            ASSERT_TRUE(other.waitForReadyRead(PrivateBus::deadline));
    }
};

TEST_F(LockHolderTest, isNobodyWhereNothingIsLocked)
{
    EXPECT_FALSE(lockHolder(file()));
    QFile made(QString::fromStdString(file().string()));
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    EXPECT_FALSE(lockHolder(file()));
}

TEST_F(LockHolderTest, isTheProcessWithTheLockAndItsSession)
{
    lock({ QStringLiteral("DISPLAY=:7"), QStringLiteral("WAYLAND_DISPLAY=wayland-1"),
        QStringLiteral("DBUS_SESSION_BUS_ADDRESS=unix:path=/a,guid=b") });
    const auto holder = lockHolder(file());
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->process, other.processId());
    EXPECT_EQ(holder->display, ":7");
    EXPECT_EQ(holder->sessionBus, "unix:path=/a,guid=b");
}

TEST_F(LockHolderTest, mayHaveNoX11AndTheUsualBus)
{
    lock({ QStringLiteral("XWAYLAND_DISPLAY=x"), QStringLiteral("WAYLAND_DISPLAY=wayland-1"),
        QStringLiteral("XDG_RUNTIME_DIR=/run/user/7") });
    const auto holder = lockHolder(file());
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->display, "wayland-1");
    EXPECT_EQ(holder->sessionBus, "unix:path=/run/user/7/bus");
}

TEST_F(LockHolderTest, mayHaveNoSessionAtAll)
{
    lock({});
    const auto holder = lockHolder(file());
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->display, "");
    EXPECT_EQ(holder->sessionBus, "");
}

TEST_F(LockHolderTest, isNotFollowedToABusThatWouldStartAProgram)
{
    lock({ QStringLiteral("DBUS_SESSION_BUS_ADDRESS=unixexec:path=/bin/true") });
    const auto holder = lockHolder(file());
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->sessionBus, "");
}

} // namespace
} // namespace vesko
