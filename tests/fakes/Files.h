#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace vesko {

// Plain access for tests, which shares nothing with the code that they test.
inline std::string bytesOf(const std::filesystem::path& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

inline void putBytes(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

inline int permissionsOf(const std::filesystem::path& path)
{
    return static_cast<int>(std::filesystem::symlink_status(path).permissions());
}

// Every file below the folder with its content; a folder's content is empty.
inline std::map<std::string, std::string> contentOf(const std::filesystem::path& folder)
{
    std::map<std::string, std::string> content;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        content[entry.path().lexically_relative(folder)]
            = entry.is_regular_file() ? bytesOf(entry.path()) : "";
    return content;
}

} // namespace vesko
