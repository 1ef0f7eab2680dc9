// The operations on a note that the user's own actions come through.

#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>
#include <system_error>

namespace vesko {

namespace {

bool isActive(const Recording& recording)
{
    return recording.status == RecordingStatus::recording
        || recording.status == RecordingStatus::transcribing;
}

} // namespace

void LibraryStore::editNote(const Uuid& id, const std::string& title, const std::string& body,
    const std::optional<std::string>& baseBody)
{
    changeNote(noteIndex(id), [&](Note& note) {
        note = note.applyingDraft(title, body, baseBody);
        note.updatedAt = m_clock.now();
    });
}

void LibraryStore::assignNote(const Uuid& id, std::optional<Uuid> projectID)
{
    requireProject(projectID);
    changeNote(noteIndex(id), [&](Note& note) {
        note.projectID = projectID;
        note.updatedAt = m_clock.now();
    });
}

void LibraryStore::trashNote(const Uuid& id)
{
    setTrash(id, m_clock.now());
}

void LibraryStore::restoreNote(const Uuid& id)
{
    setTrash(id, std::nullopt);
}

void LibraryStore::setTrash(const Uuid& id, std::optional<Date> date)
{
    const auto index = noteIndex(id);
    if (std::ranges::any_of(m_library.notes[index].recordings, isActive))
        throw VeskoError(VeskoError::libraryBusy);
    changeNote(index, [&](Note& note) { note.deletedAt = date; });
}

void LibraryStore::deletePermanently(const Uuid& id)
{
    const auto& note = m_library.notes[noteIndex(id)];
    if (!note.deletedAt)
        throw VeskoError(VeskoError::notFound);
    for (const auto& recording : note.recordings)
        removeAudio(audioURL(recording));
    Library changed = m_library;
    changed.notes.removeIf([&](const Note& other) { return other.id == id; });
    save(std::move(changed));
    try {
        m_document.renewBackup();
    } catch (const std::system_error&) {
        throw VeskoError(VeskoError::storage);
    }
}

void LibraryStore::removeAudio(const std::filesystem::path& path)
{
    try {
        m_files.unlink(path);
    } catch (const std::system_error& error) {
        // A capture that never came to its first sample has no file.
        if (error.code() != std::errc::no_such_file_or_directory)
            throw;
    }
}

} // namespace vesko
