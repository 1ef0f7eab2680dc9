#include "VeskoCore/library/Library.h"
#include "VeskoCore/library/TextSearch.h"

#include <algorithm>
#include <unicode/locid.h>

namespace vesko {

namespace {

// Whether the note begins with the transcript as it is, as most dictations do; then what stands in
// the one stands in the other. Comparing is several times faster than searching.
bool beginsWith(const Note& note, const SharedText& transcript)
{
    if (note.body.sharedWith(transcript))
        return true;
    const std::string_view body = note.body;
    return body.starts_with(transcript)
        && (body.size() == transcript.size() || body[transcript.size()] == '\n');
}

bool isFound(TextSearch& search, const Note& note)
{
    if (search.foundIn(note.title) || search.foundIn(note.body))
        return true;
    for (const auto& recording : note.recordings)
        for (const auto& attempt : recording.attempts)
            if (attempt.rawText && !beginsWith(note, *attempt.rawText)
                && search.foundIn(*attempt.rawText))
                return true;
    return false;
}

void fetch(const void* begin, std::size_t size)
{
    constexpr std::size_t atOnce = 64; // bytes
    for (std::size_t at = 0; at < size; at += atOnce)
        __builtin_prefetch(static_cast<const char*>(begin) + at);
}

// Asks the memory, step by step, for the notes behind and for where their texts begin: it takes
// longer to give these than a short search takes.
void fetchBehind(const SharedArray<Note>& notes, std::size_t index)
{
    constexpr std::size_t step = 4;
    constexpr std::size_t beginning = 256; // bytes
    if (index + 3 * step >= notes.size())
        return;
    fetch(&notes[index + 3 * step], sizeof(Note));
    const auto& next = notes[index + 2 * step];
    fetch(next.title.data(), 1);
    fetch(&static_cast<const std::string&>(next.body), sizeof(std::string));
    fetch(std::string_view(notes[index + step].body).data(), beginning);
}

} // namespace

SharedArray<Note> Library::filtered(
    const std::optional<Uuid>& projectID, std::string_view query, bool trash) const
{
    TextSearch search(query, icu::Locale::getDefault().getLanguage());
    // With the dates beside each other; sorting by those in the notes would go all over the memory.
    std::vector<std::pair<Date, std::size_t>> found;
    for (std::size_t index = 0; index < notes.size(); ++index) {
        fetchBehind(notes, index);
        const auto& note = notes[index];
        if (note.deletedAt.has_value() == trash && (!projectID || note.projectID == projectID)
            && (query.empty() || isFound(search, note)))
            found.emplace_back(note.updatedAt, index);
    }
    std::ranges::sort(found, [](const auto& a, const auto& b) {
        return a.first == b.first ? a.second < b.second : a.first > b.first;
    });
    std::vector<std::shared_ptr<const Note>> listed;
    listed.reserve(found.size());
    for (const auto& [updatedAt, index] : found)
        listed.push_back(notes.shared(index));
    return SharedArray<Note>(std::move(listed));
}

std::vector<DictionaryEntry> Library::terms(std::string_view query) const
{
    TextSearch search(query, icu::Locale::getDefault().getLanguage());
    std::vector<DictionaryEntry> found;
    for (const auto& term : dictionary)
        if (query.empty() || search.foundIn(term.original) || search.foundIn(term.replacement))
            found.push_back(term);
    return found;
}

} // namespace vesko
