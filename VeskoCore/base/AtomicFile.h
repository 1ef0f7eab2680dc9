#pragma once

#include "VeskoCore/base/InputFile.h"

#include <functional>

namespace vesko {

// A document that is replaced as a whole: whoever looks, whenever the process or the machine dies,
// finds the old content or the new, never a mixture. Readable by the owner alone. There must be
// one writer at a time, since the temporary files have fixed names (what a killed writer leaves is
// cleared by the next one). Only regular files are read or replaced: a symbolic link in the
// document's place is refused, not followed.
class AtomicFile {
public:
    // With a backup path, the content before the last write stays there. All of these files stand
    // in one folder. The file system must outlive the document.
    AtomicFile(FileSystem& files, std::filesystem::path path,
        std::optional<std::filesystem::path> backup = std::nullopt);

    // The content, as InputFile::open() gives it.
    std::unique_ptr<InputFile> open(std::uint64_t limit) const;

    // Returns when the new content is on the disk. Throws std::system_error, and then the old
    // content stands (or again no file), as long as no second call fails while it is put back.
    void write(std::string_view bytes);

    // The same for content that is made piece by piece: the producer hands each to the output. A
    // failure of the producer's own passes through, and the old content stands.
    using Output = std::function<void(std::string_view)>;
    using Producer = std::function<void(const Output&)>;
    void write(const Producer& producer);

    // Makes the backup a copy of the content as it stands, so that nothing older is kept. Throws
    // std::system_error, and then the backup is either this or the one before.
    void renewBackup();

private:
    void fill(const std::filesystem::path& path, const Producer& producer);
    void duplicate(const std::filesystem::path& from, const std::filesystem::path& to);
    void linkOrCopy(const std::filesystem::path& from, const std::filesystem::path& to);
    void copy(const std::filesystem::path& from, const std::filesystem::path& to);
    void dropPrevious();
    void discard(const std::filesystem::path& path);

    FileSystem& m_files;
    std::filesystem::path m_path;
    std::filesystem::path m_previous; // the content that a failed write puts back
    bool m_keepsPrevious;
};

} // namespace vesko
