#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <sys/types.h>
#include <utility>

namespace vesko {

struct FileStatus {
    enum Kind { regular, folder, symbolicLink, other };

    Kind kind = regular;
    mode_t permissions = 0;
    std::uint64_t size = 0; // bytes
    uid_t owner = 0;
    gid_t group = 0;
};

// The system calls that reading and saving a document takes, so that tests can let each of them
// fail. Every call throws std::system_error with the system's number when it fails, and carries on
// after a signal. Files are named by their descriptors; paths are absolute.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    // The machine's own.
    static FileSystem& posix();

    // Flags as open(2) takes them; the descriptor is never passed on to another program.
    virtual int open(const std::filesystem::path& path, int flags, mode_t permissions) = 0;
    // How many bytes came from that place on, 0 at the end of the file.
    virtual std::size_t read(int file, std::span<char> into, std::uint64_t from) = 0;
    // How many bytes went, which may be fewer than given.
    virtual std::size_t write(int file, std::string_view bytes) = 0;
    virtual void setPermissions(int file, mode_t permissions) = 0;
    virtual void setOwner(int file, uid_t owner, gid_t group) = 0;
    // Returns when the file's content, or the folder's entries, are on the disk.
    virtual void sync(int file) = 0;
    // Lets what has been written so far begin its way to the disk. A hint, which may do nothing.
    virtual void beginSync(int) { }
    // The descriptor is gone even when this fails.
    virtual void close(int file) = 0;

    // What stands at the path itself (a symbolic link is not followed), or nothing.
    virtual std::optional<FileStatus> status(const std::filesystem::path& path) = 0;
    virtual FileStatus status(int file) = 0;
    // Replaces `to` in one step.
    virtual void rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    // A second name for the file itself; a symbolic link is not followed.
    virtual void link(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    virtual void unlink(const std::filesystem::path& path) = 0;
    virtual void makeFolder(const std::filesystem::path& path, mode_t permissions) = 0;
};

// An open file that is closed at the end of the scope.
class OpenFile {
public:
    OpenFile(
        FileSystem& files, const std::filesystem::path& path, int flags, mode_t permissions = 0)
        : m_files(files)
        , m_file(files.open(path, flags, permissions))
    {
    }
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    operator int() const { return m_file; }
    // For a writer, who has to know whether closing went well.
    void close() { m_files.close(std::exchange(m_file, -1)); }

private:
    FileSystem& m_files;
    int m_file;
};

// All of the bytes, however many calls it takes. Throws std::system_error.
void writeAll(FileSystem& files, int file, std::string_view bytes);

// Returns when the folder's entries are on the disk, or when its file system can't promise that.
// Throws std::system_error.
void syncFolder(FileSystem& files, const std::filesystem::path& folder);

// Makes the folder and those above it, for the owner alone, where they don't exist. Throws
// std::system_error, also when something else stands in the way.
void makeFolders(FileSystem& files, const std::filesystem::path& folder);

} // namespace vesko
