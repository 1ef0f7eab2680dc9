#include "VeskoCore/exchange/LibraryImport.h"

#include "VeskoCore/base/FileSystem.h"
#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/exchange/Zip.h"
#include "VeskoCore/library/LibraryReader.h"

#include <fcntl.h>

#include <algorithm>
#include <optional>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

namespace vesko {

namespace {

constexpr const char* remainsFolder = ".import";
constexpr std::uint64_t smallArchive = 1 << 20; // bytes; of which any multiple is harmless

class Archive {
public:
    Archive(const std::filesystem::path& file, const ExchangeWatch& watch)
        : m_watch(watch)
    {
        // Also a folder could be opened, and a pipe would never answer.
        const auto kind = std::filesystem::status(file).type();
        if (kind == std::filesystem::file_type::not_found)
            throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
        if (kind != std::filesystem::file_type::regular)
            throw ExchangeFailure(ExchangeFailure::notALibrary);
        int code = 0;
        m_archive.reset(m_zip.open(file.c_str(), ZIP_RDONLY, &code));
        if (m_archive)
            return;
        if (code == ZIP_ER_OPEN || code == ZIP_ER_NOENT || code == ZIP_ER_READ)
            throw std::system_error(errno, std::generic_category(), "zip_open");
        throw ExchangeFailure(ExchangeFailure::notALibrary);
    }

    // Its bytes; nothing if there is none of the name. Whatever size it claims to have, no more
    // than the limit comes out of it.
    std::optional<std::uint64_t> extract(
        const std::string& name, const std::filesystem::path& to, std::uint64_t limit)
    {
        const auto index = m_zip.locate(m_archive.get(), name.c_str(), 0);
        if (index < 0)
            return std::nullopt;
        const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> from(
            m_zip.openFile(m_archive.get(), static_cast<zip_uint64_t>(index), 0), m_zip.closeFile);
        if (!from)
            throw ExchangeFailure(ExchangeFailure::notALibrary);
        auto& files = FileSystem::posix();
        OpenFile file(files, to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
        std::vector<char> piece(1 << 16);
        std::uint64_t size = 0;
        while (true) {
            if (m_watch.isCancelled())
                throw ExchangeFailure(ExchangeFailure::cancelled);
            const auto count = m_zip.read(from.get(), piece.data(), piece.size());
            if (count < 0) // its checksum was wrong, too
                throw ExchangeFailure(ExchangeFailure::notALibrary);
            if (count == 0)
                break;
            const auto came = static_cast<std::uint64_t>(count);
            size += came;
            if (size > limit)
                throw ExchangeFailure(ExchangeFailure::tooLarge);
            writeAll(files, file, { piece.data(), came });
        }
        files.sync(file);
        file.close();
        return size;
    }

private:
    const LibZip& m_zip = LibZip::get();
    const ExchangeWatch& m_watch;
    ZipArchive m_archive;
};

Library readDocument(Archive& archive, const std::filesystem::path& place, std::uint64_t limit)
{
    if (!archive.extract("library.json", place, limit))
        throw ExchangeFailure(ExchangeFailure::notALibrary);
    try {
        return readLibrary(*InputFile::open(FileSystem::posix(), place, limit));
    } catch (const JsonError&) {
        throw ExchangeFailure(ExchangeFailure::notALibrary);
    } catch (const VeskoError&) {
        throw ExchangeFailure(ExchangeFailure::laterVersion);
    }
}

// The recordings that would come with the notes that aren't here.
std::vector<Recording> newRecordings(const Library& here, const Library& other)
{
    std::set<Uuid> present;
    for (const auto& note : here.notes) {
        present.insert(note.id);
        for (const auto& recording : note.recordings)
            present.insert(recording.id);
    }
    std::vector<Recording> found;
    for (const auto& note : other.notes)
        if (!present.contains(note.id))
            for (const auto& recording : note.recordings)
                if (present.insert(recording.id).second)
                    found.push_back(recording);
    return found;
}

} // namespace

LibraryImport::LibraryImport(const Library& here, std::filesystem::path recordings,
    const std::filesystem::path& archive, const ExchangeWatch& watch, const ImportLimits& limits)
    : m_recordings(std::move(recordings))
    , m_folder(m_recordings / remainsFolder)
{
    try {
        unpack(here, archive, watch, limits);
    } catch (...) {
        clearRemains(m_recordings);
        throw;
    }
}

LibraryImport::~LibraryImport()
{
    clearRemains(m_recordings);
}

void LibraryImport::clearRemains(const std::filesystem::path& recordings)
{
    std::error_code ignored; // whoever needs the place will see
    std::filesystem::remove_all(recordings / remainsFolder, ignored);
}

void LibraryImport::unpack(const Library& here, const std::filesystem::path& archive,
    const ExchangeWatch& watch, const ImportLimits& limits)
{
    Archive from(archive, watch);
    // The document has a limit of its own: who says the same a thousand times has one that shrinks
    // to a hundredth.
    auto room = std::max<std::uint64_t>(std::filesystem::file_size(archive), smallArchive)
        * limits.growth;
    clearRemains(m_recordings);
    FileSystem::posix().makeFolder(m_folder, 0700);
    m_other = readDocument(from, m_folder / "library.json", limits.document);
    const auto recordings = newRecordings(here, m_other);
    for (std::size_t done = 0; done < recordings.size(); ++done) {
        watch.progress(static_cast<double>(done) / static_cast<double>(recordings.size()));
        const auto& recording = recordings[done];
        if (recording.fileName != Recording::fileNameFor(recording.id))
            throw ExchangeFailure(ExchangeFailure::notALibrary);
        if (recording.audioRemovedAt)
            continue;
        if (const auto size = from.extract("recordings/" + recording.fileName,
                m_folder / recording.fileName, std::min(limits.recording, room))) {
            room -= *size;
            m_unpacked.push_back(recording);
        }
    }
    if (watch.isCancelled())
        throw ExchangeFailure(ExchangeFailure::cancelled);
    watch.progress(1);
}

std::size_t LibraryImport::joinTo(LibraryStore& store)
{
    auto& files = FileSystem::posix();
    const auto before = store.snapshot().notes.size();
    std::vector<std::filesystem::path> moved;
    try {
        for (const auto& recording : m_unpacked) {
            const auto to = store.audioURL(recording);
            if (files.status(to))
                continue; // of an import that was killed just here
            files.rename(m_folder / recording.fileName, to);
            moved.push_back(to);
        }
        syncFolder(files, m_recordings);
        store.merge(m_other);
    } catch (...) {
        std::error_code ignored; // the first failure tells more
        for (const auto& file : moved)
            std::filesystem::remove(file, ignored);
        throw;
    }
    return store.snapshot().notes.size() - before;
}

} // namespace vesko
