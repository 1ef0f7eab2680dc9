#include "VeskoCore/exchange/LibraryImport.h"

#include "VeskoCore/base/FileSystem.h"
#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/exchange/Zip.h"
#include "VeskoCore/library/LibraryReader.h"

#include <fcntl.h>

#include <set>
#include <system_error>
#include <vector>

namespace vesko {

namespace {

// Files that go again unless they are to stay.
class NewFiles {
public:
    NewFiles() = default;
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;
    ~NewFiles()
    {
        std::error_code ignored;
        for (const auto& file : m_files)
            std::filesystem::remove(file, ignored);
    }
    void add(const std::filesystem::path& file) { m_files.push_back(file); }
    void keep() { m_files.clear(); }

private:
    std::vector<std::filesystem::path> m_files;
};

class Archive {
public:
    Archive(const std::filesystem::path& file, const ExchangeWatch& watch)
        : m_watch(watch)
    {
        int code = 0;
        m_archive.reset(m_zip.open(file.c_str(), ZIP_RDONLY, &code));
        if (m_archive)
            return;
        if (code == ZIP_ER_OPEN || code == ZIP_ER_NOENT || code == ZIP_ER_READ)
            throw std::system_error(errno, std::generic_category(), "zip_open");
        throw ExchangeFailure(ExchangeFailure::notALibrary);
    }

    // False if there is none of the name. Whatever size it claims to have, no more than the limit
    // comes out of it.
    bool extract(const std::string& name, const std::filesystem::path& to, std::uint64_t limit,
        NewFiles& made) const
    {
        const auto index = m_zip.locate(m_archive.get(), name.c_str(), 0);
        if (index < 0)
            return false;
        const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> from(
            m_zip.openFile(m_archive.get(), static_cast<zip_uint64_t>(index), 0), m_zip.closeFile);
        if (!from)
            throw ExchangeFailure(ExchangeFailure::notALibrary);
        auto& files = FileSystem::posix();
        OpenFile file(files, to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
        made.add(to);
        std::vector<char> piece(1 << 16);
        for (std::uint64_t size = 0;;) {
            if (m_watch.isCancelled())
                throw ExchangeFailure(ExchangeFailure::cancelled);
            const auto count = m_zip.read(from.get(), piece.data(), piece.size());
            if (count < 0) // its checksum was wrong, too
                throw ExchangeFailure(ExchangeFailure::notALibrary);
            if (count == 0)
                break;
            size += static_cast<std::uint64_t>(count);
            if (size > limit)
                throw ExchangeFailure(ExchangeFailure::tooLarge);
            std::string_view rest(piece.data(), static_cast<std::size_t>(count));
            while (!rest.empty())
                rest.remove_prefix(files.write(file, rest));
        }
        files.sync(file);
        file.close();
        return true;
    }

private:
    const LibZip& m_zip = LibZip::get();
    const ExchangeWatch& m_watch;
    ZipArchive m_archive;
};

Library readDocument(
    const Archive& archive, const std::filesystem::path& place, const ImportLimits& limits)
{
    NewFiles made;
    std::error_code ignored; // of an import that was killed
    std::filesystem::remove(place, ignored);
    if (!archive.extract("library.json", place, limits.document, made))
        throw ExchangeFailure(ExchangeFailure::notALibrary);
    try {
        return readLibrary(*InputFile::open(FileSystem::posix(), place, limits.document));
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

std::size_t importLibrary(LibraryStore& store, const std::filesystem::path& archive,
    const ExchangeWatch& watch, const ImportLimits& limits)
{
    const Archive from(archive, watch);
    // Beside the recordings, which are on the disk of the library.
    const auto place = store.audioURL(Recording::make({}, {}, {})).parent_path() / ".import.json";
    const auto other = readDocument(from, place, limits);
    const auto recordings = newRecordings(store.snapshot(), other);
    NewFiles made;
    for (std::size_t done = 0; done < recordings.size(); ++done) {
        watch.progress(static_cast<double>(done) / static_cast<double>(recordings.size()));
        const auto& recording = recordings[done];
        if (recording.fileName != Recording::fileNameFor(recording.id))
            throw ExchangeFailure(ExchangeFailure::notALibrary);
        const auto to = store.audioURL(recording);
        if (!std::filesystem::exists(to))
            from.extract("recordings/" + recording.fileName, to, limits.recording, made);
    }
    if (watch.isCancelled())
        throw ExchangeFailure(ExchangeFailure::cancelled);
    const auto before = store.snapshot().notes.size();
    store.merge(other);
    made.keep();
    watch.progress(1);
    return store.snapshot().notes.size() - before;
}

} // namespace vesko
