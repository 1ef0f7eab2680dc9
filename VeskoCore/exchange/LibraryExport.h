#pragma once

#include "VeskoCore/exchange/Exchange.h"
#include "VeskoCore/library/Library.h"

#include <filesystem>

namespace vesko {

// Writes one archive for people and for importLibrary: each note outside the Trash as Markdown, in
// a folder of its project's name; the recordings that are there; and "library.json", which has all
// of it. The file is for its owner alone, and takes its place only when it is whole: until then,
// and if anything fails, what stood there stays. Throws std::system_error, with ENOSPC for a full
// disk, and ExchangeFailure::cancelled. Blocks; any thread.
void exportLibrary(const Library& library, const std::filesystem::path& recordings,
    const std::filesystem::path& file, const ExchangeWatch& watch = {});

} // namespace vesko
