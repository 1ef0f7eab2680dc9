#pragma once

#include <filesystem>
#include <optional>

namespace vesko {

// An advisory lock on a file and on its folder, held until destroyed or until the process dies. It
// excludes other processes and other locks of this one in the same folder, also once somebody has
// removed the file. The file stays.
class FileLock {
public:
    // Creates the file for the owner alone if needed. Nothing, at once, if the lock can't be had;
    // throws std::system_error if the file can't be opened.
    static std::optional<FileLock> acquire(const std::filesystem::path& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&&) = delete;
    ~FileLock();

private:
    FileLock(int file, int folder)
        : m_file(file)
        , m_folder(folder)
    {
    }

    int m_file;
    int m_folder; // none where its file system locks no folders
};

} // namespace vesko
