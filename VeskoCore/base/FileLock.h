#pragma once

#include <filesystem>
#include <optional>

namespace vesko {

// An advisory lock on a file, held until destroyed or until the process dies. It excludes other
// processes and other locks of this one. The file stays.
class FileLock {
public:
    // Creates the file for the owner alone if needed. Nothing, at once, if the lock can't be had;
    // throws std::system_error if the file can't be opened.
    static std::optional<FileLock> acquire(const std::filesystem::path& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&&) = delete;
    ~FileLock();

private:
    explicit FileLock(int file)
        : m_file(file)
    {
    }

    int m_file;
};

} // namespace vesko
