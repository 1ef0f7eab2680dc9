#include <gio/gdesktopappinfo.h>

#include "VeskoLinux/desktop/XdgLoginItem.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <system_error>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vesko {
namespace {

namespace fs = std::filesystem;

struct XdgLoginItemTest : testing::Test {
    QTemporaryDir temporary;
    fs::path home = temporary.path().toStdString();
    fs::path entry = home / "autostart/vesko.desktop";

    void put(const std::string& content) const
    {
        fs::create_directories(entry.parent_path());
        std::ofstream(entry) << content;
    }
};

TEST_F(XdgLoginItemTest, isOffUntilEnabledAndAgainWhenDisabled)
{
    XdgLoginItem item(home, "/usr/bin/vesko");
    EXPECT_EQ(item.status(), LoginStatus::notRegistered);
    EXPECT_NO_THROW(item.disable());
    item.enable();
    EXPECT_EQ(item.status(), LoginStatus::enabled);
    item.enable();
    EXPECT_EQ(item.status(), LoginStatus::enabled);
    item.disable();
    EXPECT_EQ(item.status(), LoginStatus::notRegistered);
    EXPECT_TRUE(fs::is_empty(entry.parent_path()));
}

struct Mark {
    const char* name;
    const char* content;
    LoginStatus status;
};

void PrintTo(const Mark& mark, std::ostream* stream)
{
    *stream << mark.name;
}

class MarkedEntry : public XdgLoginItemTest, public testing::WithParamInterface<Mark> { };

TEST_P(MarkedEntry, saysWhatADesktopMadeOfIt)
{
    put(GetParam().content);
    EXPECT_EQ(XdgLoginItem(home, "/usr/bin/vesko").status(), GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(Entries, MarkedEntry,
    testing::Values(
        Mark{ "hidden", "[Desktop Entry]\nExec=vesko\nHidden=true\n", LoginStatus::notRegistered },
        Mark{ "hidden, with blanks", "[Desktop Entry]\nHidden = true\r\n",
            LoginStatus::notRegistered },
        Mark{ "not hidden", "[Desktop Entry]\nExec=vesko\nHidden=false\n", LoginStatus::enabled },
        Mark{ "hidden in another group", "[Desktop Entry]\n[Other]\nHidden=true\n",
            LoginStatus::enabled },
        Mark{ "hidden in a comment", "[Desktop Entry]\n#Hidden=true\n", LoginStatus::enabled },
        Mark{ "switched off by GNOME", "[Desktop Entry]\nX-GNOME-Autostart-enabled=false\n",
            LoginStatus::notRegistered }),
    [](const auto& info) {
        std::string name = info.param.name;
        std::ranges::replace_if(name, [](char c) { return !isalnum(c); }, '_');
        return name;
    });

TEST_F(XdgLoginItemTest, enablesAnEntryThatTheDesktopSwitchedOff)
{
    put("[Desktop Entry]\nExec=vesko\nHidden=true\n");
    XdgLoginItem item(home, "/usr/bin/vesko");
    item.enable();
    EXPECT_EQ(item.status(), LoginStatus::enabled);
}

TEST_F(XdgLoginItemTest, startsAProgramWhateverItsPathHolds)
{
    // The desktop's own reader of such entries starts a program that writes down its arguments.
    for (const char* name : { "plain", "with blanks", "quote\"s", "apo'strophe", "do$HOME",
             "back\\slash", "`tick`", "na\xC3\xAFve", "two\nlines", "tab\tstop", "a;b&c" }) {
        const auto program = home / name;
        const auto result = home / "result";
        fs::remove(result);
        ASSERT_EQ(mkfifo(result.c_str(), 0600), 0);
        std::ofstream(program) << "#!/bin/sh\nprintf '%s|' \"$@\" > " << result << "\n";
        fs::permissions(program, fs::perms::owner_all);

        XdgLoginItem(home, program).enable();
        GDesktopAppInfo* app = g_desktop_app_info_new_from_filename(entry.c_str());
        ASSERT_TRUE(app) << name;
        ASSERT_TRUE(g_app_info_launch(G_APP_INFO(app), nullptr, nullptr, nullptr)) << name;
        g_object_unref(app);
        std::string arguments;
        std::getline(std::ifstream(result), arguments);
        EXPECT_EQ(arguments, "--background|") << name;
    }
}

TEST_F(XdgLoginItemTest, doublesAPercentSignInThePath)
{
    XdgLoginItem(home, "/opt/100%u/vesko").enable();
    std::ifstream stream(entry);
    const std::string content{ std::istreambuf_iterator<char>(stream), {} };
    EXPECT_THAT(content, testing::HasSubstr("Exec=\"/opt/100%%u/vesko\" --background\n"));
}

TEST_F(XdgLoginItemTest, keepsTheOldEntryWhenTheDiskIsFull)
{
    const std::string before = "[Desktop Entry]\nHidden=true\n";
    put(before);
    const pid_t child = fork();
    if (child == 0) {
        // No file may grow beyond this: what a full disk does to a writer.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit none{ 20, 20 };
        setrlimit(RLIMIT_FSIZE, &none);
        try {
            XdgLoginItem(home, "/usr/bin/vesko").enable();
        } catch (const std::system_error&) {
            _exit(0);
        }
        _exit(1);
    }
    int status = 1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(XdgLoginItem(home, "/usr/bin/vesko").status(), LoginStatus::notRegistered);
    EXPECT_EQ(fs::file_size(entry), before.size());
}

TEST_F(XdgLoginItemTest, tellsWhatItCouldNotDoAndChangesNothing)
{
    std::ofstream(home / "autostart") << "a file";
    XdgLoginItem item(home, "/usr/bin/vesko");
    EXPECT_THROW(item.enable(), std::system_error);
    EXPECT_THROW(item.disable(), std::system_error);
    EXPECT_EQ(item.status(), LoginStatus::notRegistered);
    EXPECT_TRUE(fs::is_regular_file(home / "autostart"));
}

} // namespace
} // namespace vesko
