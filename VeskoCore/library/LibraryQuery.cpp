#include "VeskoCore/library/Library.h"
#include "VeskoCore/library/TextSearch.h"

#include <algorithm>
#include <unicode/locid.h>

namespace vesko {

namespace {

bool isFound(TextSearch& search, const Note& note)
{
    if (search.foundIn(note.title) || search.foundIn(note.body))
        return true;
    for (const auto& recording : note.recordings)
        for (const auto& attempt : recording.attempts)
            if (attempt.rawText && search.foundIn(*attempt.rawText))
                return true;
    return false;
}

} // namespace

SharedArray<Note> Library::filtered(
    const std::optional<Uuid>& projectID, std::string_view query, bool trash) const
{
    TextSearch search(query, icu::Locale::getDefault().getLanguage());
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < notes.size(); ++index) {
        const auto& note = notes[index];
        if (note.deletedAt.has_value() == trash && (!projectID || note.projectID == projectID)
            && (query.empty() || isFound(search, note)))
            found.push_back(index);
    }
    std::ranges::sort(found, [&](std::size_t a, std::size_t b) {
        const auto newer = notes[a].updatedAt <=> notes[b].updatedAt;
        return newer == 0 ? a < b : newer > 0;
    });
    std::vector<std::shared_ptr<const Note>> listed;
    for (const auto index : found)
        listed.push_back(notes.shared(index));
    return SharedArray<Note>(std::move(listed));
}

} // namespace vesko
