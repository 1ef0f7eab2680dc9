#pragma once

#include "VeskoCore/base/Clock.h"

#include <filesystem>

namespace vesko {

// Writes the library of that root, as it is saved, into an archive in the folder, named by the day,
// and prints its path. Whoever has the library open is not disturbed. The exit code: 0, or
// Terminal's with the reason on the error output. Blocks.
int exportToFolder(
    const std::filesystem::path& root, const std::filesystem::path& folder, const Clock& clock);

} // namespace vesko
