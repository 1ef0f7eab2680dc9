// Another library joins this one.

#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>
#include <map>
#include <set>

namespace vesko {

namespace {

constexpr std::size_t mostMergedEntries = 1000;
constexpr std::size_t mostCharactersOfTerm = 80;

// Whether it could have been typed in here.
bool isTerm(const std::string& text)
{
    return !text.empty() && trimmed(text) == text && firstLine(text) == text
        && !hasMoreCharacters(text, mostCharactersOfTerm);
}

// Where the notes of each project of the other library belong.
std::map<Uuid, Uuid> joinProjects(SharedArray<Project>& projects, const Library& other)
{
    std::map<Uuid, Uuid> places;
    for (const auto& project : other.projects) {
        const auto same = std::ranges::find_if(projects, [&](const Project& present) {
            return present.id == project.id || sameIgnoringCase(present.name, project.name);
        });
        if (same == projects.end()) {
            places.emplace(project.id, project.id);
            projects.append(project);
        } else {
            places.emplace(project.id, same->id);
        }
    }
    return places;
}

void joinDictionary(SharedArray<DictionaryEntry>& entries, const Library& other)
{
    std::set<Uuid> ids;
    std::set<std::string> originals;
    const auto isNew = [&](const DictionaryEntry& entry) {
        return ids.insert(entry.id).second
            && originals.insert(lowercased(canonical(entry.original))).second;
    };
    for (const auto& entry : entries)
        isNew(entry);
    for (const auto& entry : other.dictionary)
        if (entries.size() < mostMergedEntries && isTerm(entry.original)
            && isTerm(entry.replacement) && isNew(entry))
            entries.append(entry);
}

} // namespace

void LibraryStore::merge(const Library& other)
{
    Library changed = m_library;
    const auto places = joinProjects(changed.projects, other);
    joinDictionary(changed.dictionary, other);
    std::set<Uuid> present;
    for (const auto& note : changed.notes) {
        present.insert(note.id);
        for (const auto& recording : note.recordings)
            present.insert(recording.id);
    }
    for (Note note : other.notes) {
        if (!present.insert(note.id).second)
            continue;
        const auto place = note.projectID ? places.find(*note.projectID) : places.end();
        note.projectID = place == places.end() ? std::nullopt : std::optional(place->second);
        std::erase_if(note.recordings,
            [&](const Recording& recording) { return !present.insert(recording.id).second; });
        for (auto& recording : note.recordings) {
            recording.noteID = note.id;
            recording.repair(m_clock.now());
        }
        changed.notes.append(note);
    }
    if (changed != m_library)
        save(std::move(changed));
}

} // namespace vesko
