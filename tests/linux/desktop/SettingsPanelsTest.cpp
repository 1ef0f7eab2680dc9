#include "VeskoLinux/desktop/SettingsPanels.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

std::string commands(SettingsPanel panel, const char* desktops)
{
    QStringList lines;
    for (const auto& command : settingsCommands(panel, QString::fromUtf8(desktops)))
        lines << command.join(u' ');
    return lines.join(QStringLiteral("; ")).toStdString();
}

TEST(SettingsPanels, areThoseOfTheDesktopThatRuns)
{
    using enum SettingsPanel;
    const struct {
        const char* desktops;
        SettingsPanel panel;
        const char* expected;
    } rows[] = {
        { "GNOME", privacy, "gnome-control-center microphone" },
        { "ubuntu:GNOME", accessibility, "gnome-control-center universal-access" },
        { "GNOME", startup, "gnome-control-center applications" },
        { "KDE", keyboard, "systemsettings kcm_keys" },
        { "KDE", startup, "systemsettings kcm_autostart" },
        { "X-Cinnamon", accessibility, "cinnamon-settings accessibility" },
        { "XFCE", accessibility, "xfce4-accessibility-settings; xfce4-settings-manager" },
        { "XFCE", privacy, "xfce4-settings-manager" },
        { "MATE", keyboard, "mate-keybinding-properties; mate-control-center" },
        { "LXQt", accessibility, "lxqt-config" },
        { "KDE", sound, "systemsettings kcm_pulseaudio; pavucontrol" },
        { "unknown", sound, "pavucontrol" },
        { "unknown", accessibility, "" },
        { "", keyboard, "" },
    };
    for (const auto& [desktops, panel, expected] : rows)
        EXPECT_EQ(commands(panel, desktops), expected) << desktops;
}

} // namespace
} // namespace vesko
