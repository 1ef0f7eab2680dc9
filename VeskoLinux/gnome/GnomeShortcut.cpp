#include <gio/gio.h>

#include "VeskoLinux/gnome/GnomeShortcut.h"

#include "VeskoCore/base/DynamicLibrary.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include <algorithm>
#include <cctype>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace vesko {

namespace {

const char* const schema = "org.gnome.settings-daemon.plugins.media-keys";
const char* const customSchema = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
const char* const listKey = "custom-keybindings";
const std::string ourPath
    = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/vesko/";
// The desktop has what is usual elsewhere, with Shift, for the layouts of the keyboard.
const char* const ourKeys = "<Super><Alt>space";

// Every other desktop does without it.
struct Gio {
    DynamicLibrary library{ "libgio-2.0.so.0" };
    decltype(&g_settings_new) settingsNew = library["g_settings_new"];
    decltype(&g_settings_new_with_path) settingsNewWithPath = library["g_settings_new_with_path"];
    decltype(&g_settings_get_string) getString = library["g_settings_get_string"];
    decltype(&g_settings_set_string) setString = library["g_settings_set_string"];
    decltype(&g_settings_get_strv) getStrings = library["g_settings_get_strv"];
    decltype(&g_settings_set_strv) setStrings = library["g_settings_set_strv"];
    decltype(&g_settings_reset) reset = library["g_settings_reset"];
    decltype(&g_settings_schema_source_get_default) defaultSource
        = library["g_settings_schema_source_get_default"];
    decltype(&g_settings_schema_source_lookup) lookUp = library["g_settings_schema_source_lookup"];
    decltype(&g_settings_schema_unref) schemaUnref = library["g_settings_schema_unref"];
};

const Gio& gio()
{
    static const Gio loaded;
    return loaded;
}

using Settings = std::unique_ptr<GSettings, decltype(&g_object_unref)>;

Settings shortcutList()
{
    return { gio().settingsNew(schema), &g_object_unref };
}

Settings shortcutAt(const std::string& path)
{
    return { gio().settingsNewWithPath(customSchema, path.c_str()), &g_object_unref };
}

std::string text(const Settings& settings, const char* key)
{
    gchar* const value = gio().getString(settings.get(), key);
    std::string copy = value;
    g_free(value);
    return copy;
}

std::vector<std::string> paths()
{
    gchar** const values = gio().getStrings(shortcutList().get(), listKey);
    std::vector<std::string> all;
    for (gchar** value = values; *value; ++value)
        if (**value == '/' && std::string_view(*value).ends_with('/'))
            all.emplace_back(*value);
    g_strfreev(values);
    return all;
}

bool store(const std::vector<std::string>& paths)
{
    std::vector<const gchar*> values;
    values.reserve(paths.size() + 1);
    for (const auto& path : paths)
        values.push_back(path.c_str());
    values.push_back(nullptr);
    return gio().setStrings(shortcutList().get(), listKey, values.data()) != FALSE;
}

// Without these the library ends the program that asks for them.
bool hasSchemas()
{
    auto* const source = gio().defaultSource();
    if (!source)
        return false;
    return std::ranges::all_of(std::initializer_list{ schema, customSchema }, [&](const char* id) {
        auto* const found = gio().lookUp(source, id, TRUE);
        if (found)
            gio().schemaUnref(found);
        return found != nullptr;
    });
}

// "<Super><Alt>space" as "Super+Alt+Space".
std::string inWords(std::string_view keys)
{
    std::string words;
    while (keys.starts_with('<') && keys.find('>') != std::string_view::npos) {
        const auto end = keys.find('>');
        const auto name = keys.substr(1, end - 1);
        words += name == "Primary" || name == "Control" ? "Ctrl" : std::string(name);
        words += '+';
        keys.remove_prefix(end + 1);
    }
    if (keys.empty())
        return {};
    words += static_cast<char>(std::toupper(static_cast<unsigned char>(keys.front())));
    return words.append(keys.substr(1));
}

} // namespace

bool GnomeShortcut::offered()
{
    const auto* const bus = QDBusConnection::sessionBus().interface();
    return bus && bus->isServiceRegistered(QStringLiteral("org.gnome.SettingsDaemon.MediaKeys"))
        && hasSchemas();
}

std::string GnomeShortcut::boundKeys()
{
    for (const auto& path : paths()) {
        const auto one = shortcutAt(path);
        const auto command = text(one, "command");
        const bool starts
            = std::ranges::any_of(std::initializer_list{ "--toggle", "--start", "--press" },
                [&](const char* option) { return command.find(option) != std::string::npos; });
        if (starts && command.find("vesko") != std::string::npos)
            if (auto words = inWords(text(one, "binding")); !words.empty())
                return words;
    }
    return {};
}

GnomeShortcut::GnomeShortcut(std::filesystem::path program)
{
    gchar* const quoted = g_shell_quote(program.c_str());
    m_command = std::string(quoted) + " --toggle";
    g_free(quoted);
}

std::string GnomeShortcut::keys() const
{
    const auto all = paths();
    if (std::ranges::find(all, ourPath) == all.end())
        return {};
    return inWords(text(shortcutAt(ourPath), "binding"));
}

std::string GnomeShortcut::suggestion() const
{
    return inWords(ourKeys);
}

bool GnomeShortcut::add()
{
    auto all = paths();
    std::erase(all, ourPath);
    if (std::ranges::any_of(
            all, [](const auto& path) { return text(shortcutAt(path), "binding") == ourKeys; }))
        return false;
    const auto ours = shortcutAt(ourPath);
    all.push_back(ourPath);
    return gio().setString(ours.get(), "name", "Vesko")
        && gio().setString(ours.get(), "command", m_command.c_str())
        && gio().setString(ours.get(), "binding", ourKeys) && store(all);
}

void GnomeShortcut::remove()
{
    auto all = paths();
    if (std::erase(all, ourPath) > 0)
        store(all);
    const auto ours = shortcutAt(ourPath);
    for (const char* key : { "name", "command", "binding" })
        gio().reset(ours.get(), key);
}

} // namespace vesko
