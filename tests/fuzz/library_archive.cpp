// Bytes stand as an archive that is imported. Whatever comes, it ends as an import or as a failure
// that was promised, and outside the recordings' folder, or behind the import, nothing is left.

#include "VeskoCore/exchange/LibraryImport.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

using namespace vesko;
namespace fs = std::filesystem;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

// In memory, and gone with the program.
struct Place {
    Place()
    {
        std::string name = "/dev/shm/vesko-archive-XXXXXX";
        require(::mkdtemp(name.data()) != nullptr);
        folder = name;
        fs::create_directory(recordings());
    }
    ~Place() { fs::remove_all(folder); }

    fs::path archive() const { return folder / "archive.zip"; }
    fs::path recordings() const { return folder / "recordings"; }

    fs::path folder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const Place place;
    std::ofstream(place.archive(), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    try {
        const LibraryImport import({}, place.recordings(), place.archive(), {},
            { .document = 1 << 20, .recording = 1 << 20, .growth = 20 });
        require(std::ranges::distance(fs::directory_iterator(place.folder)) == 2);
    } catch (const ExchangeFailure&) {
    } catch (const std::system_error&) {
    }
    require(fs::is_empty(place.recordings()));
    require(std::ranges::distance(fs::directory_iterator(place.folder)) == 2);
    return 0;
}
