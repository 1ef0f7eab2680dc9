#pragma once

#include "VeskoCore/base/FileSystem.h"

#include <memory>
#include <string>

namespace vesko {

// A file that is read. It is as long as it was when it was opened, or shorter if somebody cut it
// since. The file system must outlive it.
class InputFile {
public:
    // Nothing if there is no such file. Throws std::system_error, also for what is no regular file
    // (a symbolic link among them) or is longer than the limit in bytes.
    static std::unique_ptr<InputFile> open(
        FileSystem& files, const std::filesystem::path& path, std::uint64_t limit);

    std::uint64_t size() const { return m_size; } // bytes, when it was opened
    // How many bytes came from that place on: fewer than there is room for only at the file's end.
    // Throws std::system_error.
    std::size_t read(std::span<char> into, std::uint64_t from);
    // All of it, with 64 bytes of spare capacity, so that a parser which reads ahead need not copy
    // it. Throws std::system_error.
    std::string text();

private:
    InputFile(FileSystem& files, const std::filesystem::path& path, std::uint64_t limit);

    FileSystem& m_files;
    OpenFile m_file;
    std::uint64_t m_size;
};

} // namespace vesko
