// On a bus of the test's own, on which nobody is, and then somebody.

#include "VeskoLinux/doctor/Checks.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/PrivateBus.h"

#include <QDBusConnection>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <thread>

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

TEST_F(BusChecks, onX11WhoHasTheShortcutIsVeskoNobodyOrSomebody)
{
    qputenv("DISPLAY", ":7");
    EXPECT_EQ(lookAtShortcut(false, [] { return true; }).state, State::fine);
    const auto taken = lookAtShortcut(false, [] { return false; });
    EXPECT_EQ(taken.state, State::wanting);
    EXPECT_THAT(taken.seen, HasSubstr("another program has it"));
    qunsetenv("DISPLAY");
}

TEST_F(BusChecks, whereThereIsNoDisplayNobodyIsSaidToHaveTheShortcut)
{
    qunsetenv("DISPLAY");
    const auto found = lookAtShortcut(false, [] { return false; });
    EXPECT_EQ(found.state, State::fact);
    EXPECT_THAT(found.seen, HasSubstr("no display"));
}

TEST_F(BusChecks, aDesktopWithoutShortcutsForProgramsHasCommands)
{
    const auto never = [] { return false; };
    qunsetenv("SWAYSOCK");
    EXPECT_THAT(lookAtShortcut(true, never).remedy, HasSubstr("vesko --toggle"));
    qputenv("SWAYSOCK", "/nowhere");
    EXPECT_THAT(lookAtShortcut(true, never).remedy, HasSubstr("man vesko"));
    qunsetenv("SWAYSOCK");
}

// A compositor that answers one question for its configuration.
class Compositor {
public:
    explicit Compositor(const std::string& configuration)
        : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{ .sun_family = AF_UNIX, .sun_path = {} };
        m_path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_socket, 1), 0);
        qputenv("SWAYSOCK", m_path.c_str());
        m_thread = std::jthread([this, configuration] { answer(configuration); });
    }
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;
    ~Compositor()
    {
        m_thread.join();
        ::close(m_socket);
        qunsetenv("SWAYSOCK");
    }

private:
    void answer(const std::string& configuration) const
    {
        const int peer = ::accept(m_socket, nullptr, nullptr);
        const QJsonObject said{ { QStringLiteral("config"),
            QString::fromStdString(configuration) } };
        const auto text = QJsonDocument(said).toJson().toStdString();
        std::string head(14, '\0');
        EXPECT_EQ(::recv(peer, head.data(), head.size(), MSG_WAITALL), 14);
        EXPECT_EQ(head, std::string("i3-ipc\0\0\0\0\x09\0\0\0", 14));
        const auto length = static_cast<std::uint32_t>(text.size());
        std::memcpy(head.data() + 6, &length, sizeof length);
        const auto whole = head + text;
        EXPECT_EQ(::send(peer, whole.data(), whole.size(), 0), ssize_t(whole.size()));
        ::close(peer);
    }

    TemporaryFolder m_folder;
    std::string m_path = m_folder.path() / "socket";
    int m_socket;
    std::jthread m_thread;
};

TEST_F(BusChecks, swayTellsTheKeysOfItsConfiguration)
{
    const struct {
        const char* configuration;
        State state;
        const char* said;
    } rows[] = {
        { "set $mod Mod4\nbindsym --no-repeat Mod4+d exec vesko --toggle\n", State::fine,
            "runs Vesko by Mod4+d" },
        { "  bindcode --release 127 exec /opt/vesko/bin/vesko --start # speak\n", State::fine,
            "runs Vesko by 127" },
        { "# bindsym Mod4+d exec vesko --toggle\n", State::wanting, "no line" },
        { "bindsym Mod4+d exec vesko --quit\nbindsym x exec vi vesko\n", State::wanting,
            "no line" },
        { "", State::wanting, "no line" },
    };
    for (const auto& row : rows) {
        const Compositor sway(row.configuration);
        const auto found = lookAtShortcut(true, [] { return false; });
        EXPECT_EQ(found.state, row.state) << row.configuration;
        EXPECT_THAT(found.seen, HasSubstr(row.said));
    }
}

TEST_F(BusChecks, aDesktopWithShortcutsThatDoesNotAnswerMayHaveOne)
{
    auto session = QDBusConnection::sessionBus();
    ASSERT_TRUE(session.registerService(QStringLiteral("org.kde.kglobalaccel")));
    EXPECT_EQ(lookAtShortcut(true, [] { return false; }).state, State::fact);
    session.unregisterService(QStringLiteral("org.kde.kglobalaccel"));
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
