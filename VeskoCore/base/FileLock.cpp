#include "VeskoCore/base/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vesko {

std::optional<FileLock> FileLock::acquire(const std::filesystem::path& path)
{
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        throw std::system_error(errno, std::generic_category());
    if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        ::close(file);
        return std::nullopt;
    }
    return FileLock(file);
}

FileLock::FileLock(FileLock&& other) noexcept
    : m_file(std::exchange(other.m_file, -1))
{
}

FileLock::~FileLock()
{
    if (m_file < 0)
        return;
    // Closing alone would leave the lock with a child that was forked meanwhile.
    ::flock(m_file, LOCK_UN);
    ::close(m_file);
}

} // namespace vesko
