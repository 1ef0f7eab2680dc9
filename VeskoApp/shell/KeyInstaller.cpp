#include "VeskoApp/shell/KeyInstaller.h"

#include "VeskoApp/preferences/Keychain.h"
#include "VeskoCore/base/Text.h"

#include <string>
#include <string_view>

namespace vesko {

namespace {

// What became of the key, as the user is told; nothing if all went well.
std::string_view failureOfInstalling(
    std::string_view key, SecretStore& secrets, SettingsStore& settings)
{
    if (key.empty())
        return "Nothing was stored: the key is empty or more than one line.";
    try {
        secrets.save(key, Keychain::veskoAccess);
    } catch (const KeychainFailure&) {
        return "Nothing was stored: the Keychain could not be used.";
    }
    try {
        if (secrets.load(Keychain::personal) == key)
            secrets.remove(Keychain::personal);
    } catch (const KeychainFailure&) {
        return "The key is stored, but perhaps as the personal key too. The settings are as they "
               "were.";
    }
    settings.set("provider", SettingValue{ std::string("openrouter") });
    settings.set("keySource", SettingValue{ std::string("vesko") });
    if (!settings.saved())
        return "The key is stored, but the settings that put it into use could not be written.";
    return {};
}

} // namespace

int installKey(std::string_view key, SecretStore& secrets, SettingsStore& settings,
    std::ostream& out, std::ostream& error)
{
    const bool isOneLine = key.find_first_of("\r\n") == std::string_view::npos;
    const auto failure = failureOfInstalling(isOneLine ? trimmed(key) : "", secrets, settings);
    if (!failure.empty()) {
        error << "Vesko could not configure its Keychain key.\n" << failure << "\n";
        return 1;
    }
    out << "Vesko personal key configured in Keychain. No value returned.\n";
    return 0;
}

} // namespace vesko
