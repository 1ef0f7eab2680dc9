#include "VeskoLinux/desktop/SettingsPanels.h"

#include <array>

namespace vesko {

namespace {

// The desktop's word in XDG_CURRENT_DESKTOP, its program, and what that calls each panel, in their
// order: privacy, sound, accessibility, keyboard, startup.
struct DesktopSettings {
    const char* desktop;
    const char* program;
    std::array<const char*, 5> panels;
};

constexpr std::array known{
    DesktopSettings{ "GNOME", "gnome-control-center",
        { "microphone", "sound", "universal-access", "keyboard", "applications" } },
    DesktopSettings{ "KDE", "systemsettings",
        { "kcm_recentFiles", "kcm_pulseaudio", "kcm_access", "kcm_keys", "kcm_autostart" } },
    DesktopSettings{ "X-Cinnamon", "cinnamon-settings",
        { "privacy", "sound", "accessibility", "keyboard", "startup" } },
};
// Where each panel is a program of its own, the settings as a whole stand in for a missing one.
struct PanelPrograms {
    const char* desktop;
    std::array<const char*, 5> programs;
    const char* whole;
};
constexpr std::array programs{
    PanelPrograms{ "XFCE",
        { nullptr, "pavucontrol", "xfce4-accessibility-settings", "xfce4-keyboard-settings",
            "xfce4-session-settings" },
        "xfce4-settings-manager" },
    PanelPrograms{ "MATE",
        { nullptr, "mate-volume-control", "mate-at-properties", "mate-keybinding-properties",
            "mate-session-properties" },
        "mate-control-center" },
    PanelPrograms{ "LXQt",
        { nullptr, "pavucontrol-qt", nullptr, "lxqt-config-globalkeyshortcuts",
            "lxqt-config-session" },
        "lxqt-config" },
};

} // namespace

std::vector<QStringList> settingsCommands(SettingsPanel panel, const QString& desktops)
{
    const auto names = desktops.split(u':');
    const auto index = static_cast<std::size_t>(panel);
    std::vector<QStringList> commands;
    for (const auto& [desktop, program, panels] : known)
        if (names.contains(QLatin1String(desktop)))
            commands.push_back({ QLatin1String(program), QLatin1String(panels.at(index)) });
    for (const auto& [desktop, panels, whole] : programs) {
        if (!names.contains(QLatin1String(desktop)))
            continue;
        if (panels.at(index))
            commands.push_back({ QLatin1String(panels.at(index)) });
        commands.push_back({ QLatin1String(whole) });
    }
    if (panel == SettingsPanel::sound)
        commands.push_back({ QStringLiteral("pavucontrol") });
    return commands;
}

} // namespace vesko
