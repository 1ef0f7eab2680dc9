#include "VeskoCore/base/FileSystem.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vesko {

namespace {

[[noreturn]] void fail(int number)
{
    throw std::system_error(number, std::generic_category());
}

// The call's result, once no signal interrupts it.
template <class Call>
auto checked(Call call)
{
    for (;;) {
        const auto result = call();
        if (result >= 0)
            return result;
        if (errno != EINTR)
            fail(errno);
    }
}

FileStatus statusFrom(const struct stat& raw)
{
    FileStatus status;
    status.kind = S_ISREG(raw.st_mode) ? FileStatus::regular
        : S_ISDIR(raw.st_mode)         ? FileStatus::folder
        : S_ISLNK(raw.st_mode)         ? FileStatus::symbolicLink
                                       : FileStatus::other;
    status.permissions = raw.st_mode & 07777;
    status.size = static_cast<std::uint64_t>(raw.st_size);
    status.owner = raw.st_uid;
    status.group = raw.st_gid;
    return status;
}

class PosixFileSystem : public FileSystem {
public:
    int open(const std::filesystem::path& path, int flags, mode_t permissions) override
    {
        return checked([&] { return ::open(path.c_str(), flags | O_CLOEXEC, permissions); });
    }
    std::size_t read(int file, std::span<char> into, std::uint64_t from) override
    {
        return static_cast<std::size_t>(checked(
            [&] { return ::pread(file, into.data(), into.size(), static_cast<off_t>(from)); }));
    }
    std::size_t write(int file, std::string_view bytes) override
    {
        return static_cast<std::size_t>(
            checked([&] { return ::write(file, bytes.data(), bytes.size()); }));
    }
    void setPermissions(int file, mode_t permissions) override
    {
        checked([&] { return ::fchmod(file, permissions); });
    }
    void setOwner(int file, uid_t owner, gid_t group) override
    {
        checked([&] { return ::fchown(file, owner, group); });
    }
    void sync(int file) override
    {
        checked([&] { return ::fsync(file); });
    }
    void beginSync([[maybe_unused]] int file) override
    {
#ifdef SYNC_FILE_RANGE_WRITE
        ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
    }
    void close(int file) override
    {
        // Not repeated after a signal: Linux has let go of the descriptor by then.
        if (::close(file) != 0 && errno != EINTR)
            fail(errno);
    }

    std::optional<FileStatus> status(const std::filesystem::path& path) override
    {
        struct stat raw{};
        if (::lstat(path.c_str(), &raw) == 0)
            return statusFrom(raw);
        if (errno == ENOENT)
            return std::nullopt;
        fail(errno);
    }
    FileStatus status(int file) override
    {
        struct stat raw{};
        checked([&] { return ::fstat(file, &raw); });
        return statusFrom(raw);
    }
    void rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        checked([&] { return ::rename(from.c_str(), to.c_str()); });
    }
    void link(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        checked([&] { return ::linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0); });
    }
    void unlink(const std::filesystem::path& path) override
    {
        checked([&] { return ::unlink(path.c_str()); });
    }
    void makeFolder(const std::filesystem::path& path, mode_t permissions) override
    {
        checked([&] { return ::mkdir(path.c_str(), permissions); });
    }
};

} // namespace

FileSystem& FileSystem::posix()
{
    static PosixFileSystem files;
    return files;
}

OpenFile::~OpenFile()
{
    if (m_file < 0)
        return;
    try {
        m_files.close(m_file);
    } catch (const std::system_error&) {
        // Whoever closes this way has read only, or has a failure of its own to report.
    }
}

void writeAll(FileSystem& files, int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = files.write(file, bytes);
        if (written == 0)
            throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
        bytes.remove_prefix(written);
    }
}

void syncFolder(FileSystem& files, const std::filesystem::path& folder)
{
    const OpenFile opened(files, folder, O_RDONLY | O_DIRECTORY);
    try {
        files.sync(opened);
    } catch (const std::system_error& error) {
        // Some file systems can't do this for a folder, and no later attempt would fare better.
        if (error.code() != std::errc::invalid_argument)
            throw;
    }
}

void makeFolders(FileSystem& files, const std::filesystem::path& folder)
{
    if (std::filesystem::is_directory(folder))
        return;
    if (folder.has_parent_path() && folder.parent_path() != folder)
        makeFolders(files, folder.parent_path());
    try {
        files.makeFolder(folder, 0700);
    } catch (const std::system_error&) {
        // Another process may have been faster.
        if (!std::filesystem::is_directory(folder))
            throw;
    }
}

} // namespace vesko
