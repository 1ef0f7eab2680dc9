// What takes room and is to go: old audio, and what is in the Trash.

#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>
#include <exception>
#include <set>
#include <system_error>

namespace vesko {

namespace {

// What says nothing yet has nothing else than its audio.
bool canGiveUpAudio(const Recording& recording, Date before)
{
    return recording.createdAt < before && !recording.audioRemovedAt && recording.latestText()
        && recording.status != RecordingStatus::recording
        && recording.status != RecordingStatus::transcribing;
}

} // namespace

std::size_t LibraryStore::giveUpAudio(Date before)
{
    const auto canGiveUp
        = [&](const Recording& recording) { return canGiveUpAudio(recording, before); };
    std::size_t count = 0;
    Library changed = m_library;
    for (std::size_t index = 0; index < changed.notes.size(); ++index) {
        if (std::ranges::none_of(changed.notes[index].recordings, canGiveUp))
            continue;
        changed.notes.edit(index, [&](Note& note) {
            for (auto& recording : note.recordings) {
                if (!canGiveUp(recording))
                    continue;
                recording.audioRemovedAt = m_clock.now();
                ++count;
            }
        });
    }
    if (count > 0)
        save(std::move(changed));
    return count;
}

void LibraryStore::clearRemovedAudio()
{
    std::exception_ptr failure;
    for (const auto& note : m_library.notes)
        for (const auto& recording : note.recordings) {
            if (!recording.audioRemovedAt)
                continue;
            try {
                removeAudio(audioURL(recording));
            } catch (const std::exception&) {
                if (!failure)
                    failure = std::current_exception();
            }
        }
    if (failure)
        std::rethrow_exception(failure);
}

void LibraryStore::deletePermanently(const std::set<Uuid>& ids)
{
    for (const Note* note : notesOf(ids))
        if (!note->deletedAt)
            throw VeskoError(VeskoError::notFound);
    if (const auto failure = remove(ids).second)
        std::rethrow_exception(failure);
}

std::vector<Uuid> LibraryStore::emptyTrash(Date before)
{
    std::set<Uuid> old;
    for (const auto& note : m_library.notes)
        if (note.deletedAt && *note.deletedAt < before)
            old.insert(note.id);
    auto [gone, failure] = remove(old);
    if (failure)
        std::rethrow_exception(failure);
    return std::move(gone);
}

std::pair<std::vector<Uuid>, std::exception_ptr> LibraryStore::remove(const std::set<Uuid>& ids)
{
    std::exception_ptr failure;
    std::vector<Uuid> gone;
    for (const auto& note : m_library.notes) {
        if (!ids.contains(note.id))
            continue;
        try {
            for (const auto& recording : note.recordings)
                removeAudio(audioURL(recording));
            gone.push_back(note.id);
        } catch (const std::exception&) {
            if (!failure)
                failure = std::current_exception();
        }
    }
    if (!gone.empty()) {
        Library changed = m_library;
        changed.notes.removeIf([went = std::set(gone.begin(), gone.end())](
                                   const Note& note) { return went.contains(note.id); });
        save(std::move(changed));
        try {
            m_document.renewBackup();
        } catch (const std::system_error&) {
            throw VeskoError(VeskoError::storage);
        }
    }
    return { std::move(gone), failure };
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
