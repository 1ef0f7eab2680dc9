#include "VeskoCore/base/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vesko {

namespace {

constexpr int none = -1;

int opened(const std::filesystem::path& path, int flags)
{
    const int file = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (file < 0)
        throw std::system_error(errno, std::generic_category());
    return file;
}

// Closing alone would leave the lock with a child that was forked meanwhile.
void release(int file)
{
    if (file < 0)
        return;
    ::flock(file, LOCK_UN);
    ::close(file);
}

} // namespace

std::optional<FileLock> FileLock::acquire(const std::filesystem::path& path)
{
    FileLock lock(opened(path, O_RDWR | O_CREAT | O_NOFOLLOW), none);
    if (::flock(lock.m_file, LOCK_EX | LOCK_NB) != 0)
        return std::nullopt;
    // A file that was removed is still locked for whoever has it, but no more for those who make
    // it anew. The folder can't go as long as anything is in it.
    lock.m_folder = opened(path.parent_path(), O_RDONLY | O_DIRECTORY);
    if (::flock(lock.m_folder, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK)
            return std::nullopt;
        // A network's file system may lock only what can be written.
        ::close(std::exchange(lock.m_folder, none));
    }
    return lock;
}

FileLock::FileLock(FileLock&& other) noexcept
    : m_file(std::exchange(other.m_file, none))
    , m_folder(std::exchange(other.m_folder, none))
{
}

FileLock::~FileLock()
{
    release(m_folder);
    release(m_file);
}

} // namespace vesko
