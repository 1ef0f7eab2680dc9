#include "VeskoApp/platform/SecretStore.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

const char* KeychainFailure::errorDescription() const
{
    return L10N_KEY(
        "Vesko", "Vesko could not access your key in Keychain. Unlock your Mac and try again.");
}

} // namespace vesko
