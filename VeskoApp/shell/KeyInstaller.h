#pragma once

#include "VeskoApp/platform/SecretStore.h"
#include "VeskoApp/platform/SettingsStore.h"

#include <ostream>

namespace vesko {

// Provisions the Vesko access key without an interface, for a script. Blocks; gives the status
// that the process is to end with. A personal key that is the same key is removed, so that it does
// not stand in two places. Never prints the key.
int installKey(const char* key, SecretStore& secrets, SettingsStore& settings, std::ostream& out,
    std::ostream& error);

} // namespace vesko
