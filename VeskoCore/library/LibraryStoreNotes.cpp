// The operations on a note that the user's own actions come through.

#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>

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

std::set<const Note*> LibraryStore::notesOf(const std::set<Uuid>& ids) const
{
    std::set<const Note*> found;
    auto left = ids;
    for (const auto& note : m_library.notes)
        if (left.erase(note.id) > 0)
            found.insert(&note);
    if (!left.empty())
        throw VeskoError(VeskoError::notFound);
    return found;
}

void LibraryStore::assignNotes(const Places& places)
{
    std::set<Uuid> ids;
    for (const auto& [id, project] : places) {
        requireProject(project);
        ids.insert(id);
    }
    Library changed = m_library;
    changed.notes.editIf([moved = notesOf(ids)](const Note& note) { return moved.contains(&note); },
        [&](Note& note) {
            note.projectID = places.at(note.id);
            note.updatedAt = m_clock.now();
        });
    save(std::move(changed));
}

void LibraryStore::trashNotes(const std::set<Uuid>& ids)
{
    setTrash(ids, m_clock.now());
}

void LibraryStore::restoreNotes(const std::set<Uuid>& ids)
{
    setTrash(ids, std::nullopt);
}

void LibraryStore::setTrash(const std::set<Uuid>& ids, std::optional<Date> date)
{
    const auto moved = notesOf(ids);
    for (const Note* note : moved)
        if (std::ranges::any_of(note->recordings, isActive))
            throw VeskoError(VeskoError::libraryBusy);
    Library changed = m_library;
    changed.notes.editIf([&](const Note& note) { return moved.contains(&note); },
        [&](Note& note) { note.deletedAt = date; });
    save(std::move(changed));
}

} // namespace vesko
