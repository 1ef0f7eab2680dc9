#pragma once

#include <filesystem>

namespace vesko {

class FileSystem;

// Returns when the file, its name and all that has been written into it by now are on the disk,
// where the system alone would bring them after half a minute. What grows further meanwhile may be
// there or not. Throws std::system_error. Any thread; may wait for a slow disk.
void bringToDisk(FileSystem& files, const std::filesystem::path& file);

} // namespace vesko
