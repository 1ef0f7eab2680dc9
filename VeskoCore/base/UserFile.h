#pragma once

#include "VeskoCore/base/FileSystem.h"

#include <functional>

namespace vesko {

// Replaces a file that the user named, anywhere, by new content. Whoever looks finds the old
// content or the new, and no other file of the folder is touched. A file that is there keeps its
// permissions, owner and group; a new one gets what the user's umask leaves. Through a symbolic
// link, what it points to is written.
//
// Returns when the new content is on the disk. Throws std::system_error: also for what is no
// regular file, and where this user may not give a new file the old one's owner. Then the old
// content stands, or again no file, unless only the folder could not be brought to the disk. A
// process that dies within may leave a hidden file with ".vesko-" and an identifier for its name.
void writeUserFile(FileSystem& files, const std::filesystem::path& path, std::string_view bytes);

// The same for content that `fill` writes into the file whose path it is given, or puts in its
// place under the same permissions. What `fill` throws ends it as a failure does.
void replaceUserFile(FileSystem& files, const std::filesystem::path& path,
    const std::function<void(const std::filesystem::path&)>& fill);

// Where the symbolic links of a path's last part lead; what is there need not exist. Throws
// std::system_error where they go in a circle.
std::filesystem::path fileBehindLinks(FileSystem& files, std::filesystem::path path);

} // namespace vesko
