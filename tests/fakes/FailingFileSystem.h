#pragma once

#include "VeskoCore/base/FileSystem.h"

#include <system_error>
#include <unistd.h>

namespace vesko {

// The machine's file system, one of whose calls goes wrong on purpose.
class FailingFileSystem final : public FileSystem {
public:
    enum class Fault {
        none,
        error, // the call does nothing and fails with `number`
        errors, // and so do all after it, as if the process had ended there
        shortWrite, // a write takes half of the bytes; any other call goes well
        deathBefore, // the process ends where the call would begin
        deathWithin, // the process ends with half a write done, or right after any other call
    };

    Fault fault = Fault::none;
    int number = 0; // the system's number of the error
    int at = 0; // which call, counted from 0 since `calls` was set
    int calls = 0;
    std::uint64_t bytesRead = 0;
    bool hasLinks = true;
    bool syncsFolders = true;
    bool syncs = true; // only a death of the machine could tell

    int open(const std::filesystem::path& path, int flags, mode_t permissions) override
    {
        return call([&] { return m_real.open(path, flags, permissions); });
    }
    std::size_t read(int file, std::span<char> into, std::uint64_t from) override
    {
        const auto came = call([&] { return m_real.read(file, into, from); });
        bytesRead += came;
        return came;
    }
    std::size_t write(int file, std::string_view bytes) override
    {
        if (calls == at && (fault == Fault::shortWrite || fault == Fault::deathWithin))
            bytes = bytes.substr(0, (bytes.size() + 1) / 2);
        return call([&] { return m_real.write(file, bytes); });
    }
    void setPermissions(int file, mode_t permissions) override
    {
        call([&] { return m_real.setPermissions(file, permissions), 0; });
    }
    void setOwner(int file, uid_t owner, gid_t group) override
    {
        call([&] { return m_real.setOwner(file, owner, group), 0; });
    }
    void sync(int file) override
    {
        if (!syncsFolders && m_real.status(file).kind == FileStatus::folder)
            throw std::system_error(EINVAL, std::generic_category());
        call([&] { return syncs ? m_real.sync(file) : void(), 0; });
    }
    void close(int file) override
    {
        // A close that fails has closed all the same.
        if (fails())
            m_real.close(file);
        call([&] { return m_real.close(file), 0; });
    }
    std::optional<FileStatus> status(const std::filesystem::path& path) override
    {
        return call([&] { return m_real.status(path); });
    }
    FileStatus status(int file) override
    {
        return call([&] { return m_real.status(file); });
    }
    void rename(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        call([&] { return m_real.rename(from, to), 0; });
    }
    void link(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        if (!hasLinks)
            throw std::system_error(EPERM, std::generic_category());
        call([&] { return m_real.link(from, to), 0; });
    }
    void unlink(const std::filesystem::path& path) override
    {
        call([&] { return m_real.unlink(path), 0; });
    }
    void makeFolder(const std::filesystem::path& path, mode_t permissions) override
    {
        call([&] { return m_real.makeFolder(path, permissions), 0; });
    }

private:
    // Whether the next call is to fail with the error.
    bool fails() const
    {
        return (fault == Fault::error && calls == at) || (fault == Fault::errors && calls >= at);
    }

    template <class Work>
    auto call(Work work) -> decltype(work())
    {
        if (fails()) {
            ++calls;
            throw std::system_error(number, std::generic_category());
        }
        if (calls++ != at || (fault != Fault::deathBefore && fault != Fault::deathWithin))
            return work();
        if (fault == Fault::deathWithin)
            work();
        _exit(0);
    }

    FileSystem& m_real = FileSystem::posix();
};

} // namespace vesko
