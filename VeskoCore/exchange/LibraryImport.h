#pragma once

#include "VeskoCore/exchange/Exchange.h"
#include "VeskoCore/library/LibraryStore.h"

#include <cstdint>
#include <filesystem>

namespace vesko {

struct ImportLimits {
    std::uint64_t document = 512ULL << 20; // bytes, unpacked
    std::uint64_t recording = 256ULL << 20; // each
};

// Takes what an archive of exportLibrary holds into a library, empty or not, without doubling what
// is there: a note or recording that is there stays as it is. How many notes came. The archive may
// be anybody's: of its names only those are asked for that a library of ours has, and nothing is
// unpacked beyond the limits. If it fails, the library is as it was, and no file is left behind.
// Throws ExchangeFailure; std::system_error and VeskoError::storage for the disk. Blocks; on the
// store's thread.
std::size_t importLibrary(LibraryStore& store, const std::filesystem::path& archive,
    const ExchangeWatch& watch = {}, const ImportLimits& limits = {});

} // namespace vesko
