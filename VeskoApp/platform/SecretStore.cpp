#include "VeskoApp/platform/SecretStore.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

const char* KeychainFailure::errorDescription() const
{
    if (m_kind == absent)
        return L10N_KEY("Vesko",
            "No password store (keyring) runs here, so Vesko has no place for keys. Start one, "
            "such as GNOME Keyring, KWallet or KeePassXC, and try again.");
    return L10N_KEY(
        "Vesko", "Vesko could not access your key in Keychain. Unlock your Mac and try again.");
}

} // namespace vesko
