#pragma once

#include "VeskoCore/exchange/Exchange.h"
#include "VeskoCore/library/Library.h"

#include <filesystem>

namespace vesko {

// Writes one archive for people and for importLibrary: each note outside the Trash as Markdown, in
// a folder of its project's name; the recordings that are there and whole; and "library.json",
// which has all of it. The file is replaced as writeUserFile does. Throws std::system_error, with
// ENOSPC for a full disk, and ExchangeFailure::cancelled. Blocks; any thread.
void exportLibrary(const Library& library, const std::filesystem::path& recordings,
    const std::filesystem::path& file, const ExchangeWatch& watch = {});

} // namespace vesko
