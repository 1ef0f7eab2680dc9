#pragma once

#include "VeskoApp/platform/SecretStore.h"
#include "VeskoApp/platform/SettingsStore.h"

#include <ostream>
#include <string_view>

namespace vesko {

// Provisions the Vesko access key without an interface, for a script. Blocks; gives the status
// that the process is to end with: 1 if anything failed, and then it says what was stored and what
// was not. Blanks around the key don't count; a key that is then empty, or has a line end, is
// refused. A personal key that is the same key is removed, so that it does not stand in two
// places. Never prints the key.
int installKey(std::string_view key, SecretStore& secrets, SettingsStore& settings,
    std::ostream& out, std::ostream& error);

} // namespace vesko
