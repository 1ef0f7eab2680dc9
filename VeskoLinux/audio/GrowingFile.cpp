#include "VeskoLinux/audio/GrowingFile.h"

#include "VeskoCore/base/FileSystem.h"

#include <fcntl.h>

namespace vesko {

void bringToDisk(FileSystem& files, const std::filesystem::path& file)
{
    const OpenFile grown(files, file, O_RDONLY | O_NOFOLLOW);
    files.sync(grown);
    syncFolder(files, file.parent_path());
}

} // namespace vesko
