// On a bus of the test's own, on which nobody is, and then somebody.

#include "VeskoLinux/doctor/Checks.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/PrivateBus.h"

#include <QDBusConnection>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace vesko {
namespace {

using State = Finding::State;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

PrivateBus& bus()
{
    static PrivateBus is; // Qt connects to it once
    return is;
}

class BusChecks : public testing::Test {
protected:
    BusChecks() { bus(); }
};

TEST_F(BusChecks, whatNobodyServesIsWantingWithARemedy)
{
    const struct {
        Finding finding;
        State state;
        const char* remedy;
    } rows[] = {
        { lookAtAccessibility(), State::wanting, "at-spi2-core" },
        { lookAtTray(), State::wanting, "floating control" },
        { lookAtKeyring(), State::wanting, "gnome-keyring" },
        { lookAtNotifications(), State::fact, "" },
        { lookAtProgram(), State::fact, "" },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.finding.state, row.state) << row.finding.seen;
        EXPECT_THAT(row.finding.remedy, HasSubstr(row.remedy));
    }
}

TEST_F(BusChecks, aNameThatSomebodyHasIsServed)
{
    auto session = QDBusConnection::sessionBus();
    ASSERT_TRUE(session.registerService(QStringLiteral("org.freedesktop.Notifications")));
    EXPECT_EQ(lookAtNotifications().state, State::fine);
    session.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
    EXPECT_EQ(lookAtNotifications().state, State::fact);
}

TEST_F(BusChecks, aShortcutOfADesktopOfItsOwnIsACommand)
{
    const auto before = qgetenv("XDG_SESSION_TYPE");
    qputenv("XDG_SESSION_TYPE", "wayland");
    EXPECT_THAT(lookAtShortcut().remedy, HasSubstr("vesko --toggle"));
    auto session = QDBusConnection::sessionBus();
    ASSERT_TRUE(session.registerService(QStringLiteral("org.kde.kglobalaccel")));
    EXPECT_EQ(lookAtShortcut().state, State::fine);
    session.unregisterService(QStringLiteral("org.kde.kglobalaccel"));
    qputenv("XDG_SESSION_TYPE", "x11");
    EXPECT_EQ(lookAtShortcut().state, State::fact);
    qputenv("XDG_SESSION_TYPE", before);
}

TEST(MachineChecks, knowTheDataFolderAndKeepItsNameToThemselves)
{
    const TemporaryFolder folder;
    const auto found = lookAtData(folder.path());
    EXPECT_THAT(found.seen, HasSubstr("GB are free"));
    const auto none = lookAtData(folder.path() / "not" / "there");
    EXPECT_THAT(none.seen, HasSubstr("is made at the first start"));
    const auto impossible = lookAtData("/proc/nowhere");
    EXPECT_EQ(impossible.state, State::wanting);
    for (const auto& each : { found, none, impossible })
        EXPECT_THAT(each.seen + each.remedy, Not(HasSubstr(folder.path().string())));
}

TEST(MachineChecks, knowTheVersions)
{
    EXPECT_THAT(lookAtVersions("1.2.3").seen, StartsWith("Vesko 1.2.3, "));
}

TEST(MachineChecks, knowWhatRecordingsNeed)
{
    EXPECT_EQ(lookAtEncoder().state, State::fine) << lookAtEncoder().seen;
}

} // namespace
} // namespace vesko
