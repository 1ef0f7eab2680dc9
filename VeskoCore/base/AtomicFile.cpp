#include "VeskoCore/base/AtomicFile.h"

#include <fcntl.h>
#include <limits>
#include <system_error>
#include <vector>

namespace vesko {

namespace {

constexpr mode_t ownerOnly = 0600;
constexpr std::size_t writtenAhead = 4 << 20; // bytes
constexpr std::size_t copiedAtOnce = 256 << 10; // bytes

std::filesystem::path suffixed(std::filesystem::path path, const char* suffix)
{
    return path += suffix;
}

std::filesystem::path temporaryFor(const std::filesystem::path& path)
{
    return suffixed(path, ".tmp");
}

} // namespace

AtomicFile::AtomicFile(
    FileSystem& files, std::filesystem::path path, std::optional<std::filesystem::path> backup)
    : m_files(files)
    , m_path(std::move(path))
    , m_previous(backup ? *backup : suffixed(m_path, ".previous"))
    , m_keepsPrevious(backup.has_value())
{
}

std::unique_ptr<InputFile> AtomicFile::open(std::uint64_t limit) const
{
    return InputFile::open(m_files, m_path, limit);
}

void AtomicFile::write(std::string_view bytes)
{
    write([&](const Output& output) { output(bytes); });
}

void AtomicFile::write(const Producer& producer)
{
    const auto present = m_files.status(m_path);
    if (present && present->kind != FileStatus::regular)
        throw std::system_error(std::make_error_code(std::errc::operation_not_permitted));

    // The new content comes first: a full disk, the likeliest failure, then costs no backup.
    const auto fresh = temporaryFor(m_path);
    try {
        fill(fresh, producer);
        if (present)
            duplicate(m_path, m_previous);
        m_files.rename(fresh, m_path);
    } catch (...) {
        discard(fresh);
        dropPrevious();
        throw;
    }
    try {
        syncFolder(m_files, m_path.parent_path());
    } catch (...) {
        // The caller will go on with the old content, so it has to be what stands on the disk.
        if (present)
            duplicate(m_previous, m_path);
        else
            m_files.unlink(m_path);
        dropPrevious();
        throw;
    }
    dropPrevious();
}

void AtomicFile::renewBackup()
{
    // A copy, not a second name: whatever befalls the one file must not befall the other.
    const auto fresh = temporaryFor(m_previous);
    try {
        copy(m_path, fresh);
        m_files.rename(fresh, m_previous);
        syncFolder(m_files, m_path.parent_path());
    } catch (...) {
        discard(fresh);
        throw;
    }
}

void AtomicFile::dropPrevious()
{
    if (!m_keepsPrevious)
        discard(m_previous);
}

void AtomicFile::fill(const std::filesystem::path& path, const Producer& producer)
{
    discard(path);
    OpenFile file(m_files, path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, ownerOnly);
    m_files.setPermissions(file, ownerOnly);
    std::size_t since = 0; // bytes since the disk was last told to begin
    producer([&](std::string_view bytes) {
        since += bytes.size();
        writeAll(m_files, file, bytes);
        // The disk works while the rest is still being made.
        if (since >= writtenAhead) {
            m_files.beginSync(file);
            since = 0;
        }
    });
    m_files.sync(file);
    file.close();
}

void AtomicFile::duplicate(const std::filesystem::path& from, const std::filesystem::path& to)
{
    const auto fresh = temporaryFor(to);
    try {
        linkOrCopy(from, fresh);
        m_files.rename(fresh, to);
    } catch (...) {
        discard(fresh);
        throw;
    }
    // Renaming does nothing where both names already were one file, as after a failed write.
    discard(fresh);
}

void AtomicFile::linkOrCopy(const std::filesystem::path& from, const std::filesystem::path& to)
{
    discard(to);
    try {
        m_files.link(from, to);
        const OpenFile file(m_files, to, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        const auto status = m_files.status(file);
        if (status.kind == FileStatus::regular && status.permissions != ownerOnly)
            m_files.setPermissions(file, ownerOnly);
    } catch (const std::system_error&) {
        // Not every file system has links, nor may everybody's files be linked.
        copy(from, to);
    }
}

void AtomicFile::copy(const std::filesystem::path& from, const std::filesystem::path& to)
{
    const auto file = InputFile::open(m_files, from, std::numeric_limits<off_t>::max());
    if (!file)
        return;
    fill(to, [&](const Output& output) {
        std::vector<char> piece(copiedAtOnce);
        std::uint64_t copied = 0;
        while (const auto size = file->read(piece, copied)) {
            output({ piece.data(), size });
            copied += size;
        }
    });
}

void AtomicFile::discard(const std::filesystem::path& path)
{
    try {
        m_files.unlink(path);
    } catch (const std::system_error&) {
        // Mostly there is nothing to remove; what does stay is removed by the next write.
    }
}

} // namespace vesko
