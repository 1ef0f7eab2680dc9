#pragma once

#include "VeskoCore/exchange/Exchange.h"
#include "VeskoCore/library/LibraryReader.h"
#include "VeskoCore/library/LibraryStore.h"

#include <cstdint>
#include <filesystem>

namespace vesko {

struct ImportLimits {
    std::uint64_t document = largestDocument; // bytes, unpacked
    std::uint64_t recording = 256ULL << 20; // each
    std::uint64_t growth = 20; // how many times the archive's own size all recordings may take
};

// What an archive of exportLibrary holds that a library doesn't have, unpacked beside the library's
// recordings, from where it can join the library or goes again. The archive may be anybody's: of
// its names only those are asked for that a library of ours has, and nothing is unpacked beyond the
// limits. One at a time for a library.
class LibraryImport {
public:
    // Unpacks. What is in `here` is left out, and nothing of that library is touched. Throws
    // ExchangeFailure, and std::system_error for the disk; nothing is left behind then. Blocks; any
    // thread.
    LibraryImport(const Library& here, std::filesystem::path recordings,
        const std::filesystem::path& archive, const ExchangeWatch& watch = {},
        const ImportLimits& limits = {});
    LibraryImport(const LibraryImport&) = delete;
    LibraryImport& operator=(const LibraryImport&) = delete;
    ~LibraryImport();

    // Takes it into the library, without doubling what is there: a note or recording that is there
    // stays as it is. How many notes came. If it fails, with VeskoError or std::system_error, the
    // library is as it was. Once; on the store's thread, for as long as a change takes.
    std::size_t joinTo(LibraryStore& store);

    // Removes what an import has left there that was killed.
    static void clearRemains(const std::filesystem::path& recordings);

private:
    void unpack(const Library& here, const std::filesystem::path& archive,
        const ExchangeWatch& watch, const ImportLimits& limits);

    std::filesystem::path m_recordings;
    std::filesystem::path m_folder; // for what is unpacked
    Library m_other;
    std::vector<Recording> m_unpacked;
};

} // namespace vesko
