#include "VeskoApp/shell/KeyInstaller.h"

#include "VeskoApp/preferences/Keychain.h"

namespace vesko {

int installKey(const char* key, SecretStore& secrets, SettingsStore& settings, std::ostream& out,
    std::ostream& error)
{
    try {
        if (!key || !*key)
            throw KeychainFailure();
        secrets.save(key, Keychain::veskoAccess);
        if (secrets.load(Keychain::personal) == key)
            secrets.remove(Keychain::personal);
    } catch (const KeychainFailure&) {
        error << "Vesko could not configure its Keychain key.\n";
        return 1;
    }
    settings.set("provider", SettingValue{ std::string("openrouter") });
    settings.set("keySource", SettingValue{ std::string("vesko") });
    out << "Vesko personal key configured in Keychain. No value returned.\n";
    return 0;
}

} // namespace vesko
