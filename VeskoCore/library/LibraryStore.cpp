#include "VeskoCore/library/LibraryStore.h"

#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/LibraryReader.h"
#include "VeskoCore/library/UnfinishedAudio.h"

#include <algorithm>
#include <system_error>

namespace vesko {

namespace {

constexpr const char* recordingsFolder = "recordings";

FileLock claim(FileSystem& files, const std::filesystem::path& root)
{
    makeFolders(files, root);
    auto lock = [&] {
        try {
            return FileLock::acquire(root / ".lock");
        } catch (const std::system_error&) {
            throw VeskoError(VeskoError::storage);
        }
    }();
    if (!lock)
        throw VeskoError(VeskoError::libraryBusy);
    return std::move(*lock);
}

// Whether anything had to be repaired.
bool repair(Library& library, const Clock& clock)
{
    bool changed = false;
    for (std::size_t index = 0; index < library.notes.size(); ++index) {
        if (std::ranges::none_of(library.notes[index].recordings, &Recording::needsRepair))
            continue;
        library.notes.edit(index, [&](Note& note) {
            for (auto& recording : note.recordings)
                recording.repair(clock.now());
        });
        changed = true;
    }
    return changed;
}

} // namespace

LibraryStore::LibraryStore(std::filesystem::path root, const Clock& clock, FileSystem& files)
    : m_root(std::move(root))
    , m_clock(clock)
    , m_files(files)
    , m_lock(claim(files, m_root))
    , m_document(files, m_root / "library.json", m_root / "library.backup.json")
{
    try {
        open();
    } catch (const VeskoError&) {
        throw;
    } catch (const std::system_error& error) {
        throw VeskoError(error.code() == std::errc::file_too_large ? VeskoError::libraryTooLarge
                                                                   : VeskoError::corruptLibrary);
    } catch (const std::exception&) {
        throw VeskoError(VeskoError::corruptLibrary);
    }
}

void LibraryStore::open()
{
    Library library;
    if (const auto file = m_document.open(largestDocument))
        library = readLibrary(*file);
    makeFolders(m_files, m_root / recordingsFolder);
    if (repair(library, m_clock))
        save(std::move(library));
    else
        m_library = std::move(library);
    settleAudio();
}

// What was being finished when the program was ended.
void LibraryStore::settleAudio()
{
    for (const auto& note : m_library.notes)
        for (const auto& recording : note.recordings) {
            if (recording.status == RecordingStatus::ready || recording.audioRemovedAt)
                continue;
            try {
                settleUnfinishedAudio(m_files, audioURL(recording));
            } catch (const std::exception&) {
                // The library opens all the same, and the recording plays as far as it grew.
            }
        }
}

void LibraryStore::save(Library changed)
{
    try {
        m_document.write([&](const AtomicFile::Output& output) {
            std::uint64_t size = 0;
            const auto limited = [&](std::string_view piece) {
                size += piece.size();
                if (size > largestDocument)
                    throw VeskoError(VeskoError::storage);
                output(piece);
            };
            JsonWriter::write(changed, JsonWriter::Form::pretty, limited, &m_texts);
        });
    } catch (const std::system_error&) {
        throw VeskoError(VeskoError::storage);
    } catch (const JsonError&) {
        throw VeskoError(VeskoError::storage);
    }
    m_library = std::move(changed);
}

LibraryStore::Location LibraryStore::location(const Uuid& recordingID) const
{
    for (std::size_t note = 0; note < m_library.notes.size(); ++note) {
        const auto& recordings = m_library.notes[note].recordings;
        const auto found = std::ranges::find(recordings, recordingID, &Recording::id);
        if (found != recordings.end())
            return { note, static_cast<std::size_t>(found - recordings.begin()) };
    }
    throw VeskoError(VeskoError::notFound);
}

std::size_t LibraryStore::noteIndex(const Uuid& id) const
{
    const auto found = std::ranges::find(m_library.notes, id, &Note::id);
    if (found == m_library.notes.end())
        throw VeskoError(VeskoError::notFound);
    return static_cast<std::size_t>(found - m_library.notes.begin());
}

Note LibraryStore::createNote(NoteKind kind, std::optional<Uuid> projectID)
{
    requireProject(projectID);
    Note note;
    note.id = Uuid::random();
    note.kind = kind;
    note.projectID = projectID;
    note.createdAt = m_clock.now();
    note.updatedAt = m_clock.now();
    Library changed = m_library;
    changed.notes.append(note);
    save(std::move(changed));
    return note;
}

Recording LibraryStore::beginRecording(const Uuid& noteID)
{
    const auto found = std::ranges::find_if(
        m_library.notes, [&](const Note& note) { return note.id == noteID && !note.deletedAt; });
    if (found == m_library.notes.end())
        throw VeskoError(VeskoError::notFound);
    const auto recording = Recording::make(Uuid::random(), noteID, m_clock.now());
    changeNote(static_cast<std::size_t>(found - m_library.notes.begin()), [&](Note& note) {
        note.recordings.push_back(recording);
        note.updatedAt = m_clock.now();
    });
    return recording;
}

std::filesystem::path LibraryStore::audioURL(const Recording& recording) const
{
    // Only a name made from the identifier reaches the file system, whatever the document says.
    if (recording.fileName != Recording::fileNameFor(recording.id))
        throw VeskoError(VeskoError::unsafePath);
    auto path = m_root / recordingsFolder / recording.fileName;
    try {
        const auto status = m_files.status(path);
        if (status && status->kind == FileStatus::symbolicLink)
            throw VeskoError(VeskoError::unsafePath);
    } catch (const std::system_error&) {
        // What can't be asked about can't be a link yet either; whoever opens the file will see.
    }
    return path;
}

void LibraryStore::finishRecording(const Uuid& id, double duration)
{
    const auto at = location(id);
    changeNote(at.note, [&](Note& note) {
        auto& recording = note.recordings[at.recording];
        recording.duration = duration;
        recording.status = RecordingStatus::recorded;
    });
}

void LibraryStore::failRecording(const Uuid& id, const std::string& message)
{
    const auto at = location(id);
    changeNote(at.note, [&](Note& note) {
        auto& recording = note.recordings[at.recording];
        recording.status = RecordingStatus::failed;
        recording.errorMessage = message;
    });
}

} // namespace vesko
