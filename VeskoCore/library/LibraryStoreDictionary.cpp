// The operations that keep the personal dictionary valid: every term has one entry, ignoring case.

#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>

namespace vesko {

namespace {

constexpr std::size_t mostTermCharacters = 80;
constexpr std::size_t mostEntries = 1000;

// The term as it is stored. Throws invalidDictionary.
std::string validTerm(std::string_view term)
{
    term = trimmed(term);
    if (term.empty() || firstLine(term) != term
        || firstCharacters(term, mostTermCharacters) != term)
        throw VeskoError(VeskoError::invalidDictionary);
    return std::string(term);
}

} // namespace

void LibraryStore::saveDictionaryEntry(const DictionaryEntry& given)
{
    DictionaryEntry entry = given;
    entry.original = validTerm(given.original);
    entry.replacement = validTerm(given.replacement);
    if (sameText(entry.original, entry.replacement))
        throw VeskoError(VeskoError::invalidDictionary);
    const auto& entries = m_library.dictionary;
    if (std::ranges::any_of(entries, [&](const DictionaryEntry& other) {
            return other.id != entry.id && sameIgnoringCase(other.original, entry.original);
        }))
        throw VeskoError(VeskoError::duplicateDictionary);
    Library changed = m_library;
    const auto present = std::ranges::find(entries, entry.id, &DictionaryEntry::id);
    if (present != entries.end())
        changed.dictionary.set(static_cast<std::size_t>(present - entries.begin()), entry);
    else if (entries.size() >= mostEntries)
        throw VeskoError(VeskoError::invalidDictionary);
    else
        changed.dictionary.append(entry);
    save(std::move(changed));
}

void LibraryStore::removeDictionaryEntry(const Uuid& id)
{
    Library changed = m_library;
    changed.dictionary.removeIf([&](const DictionaryEntry& entry) { return entry.id == id; });
    save(std::move(changed));
}

std::size_t LibraryStore::learnCorrections(const std::vector<DictionarySuggestion>& suggestions)
{
    Library changed = m_library;
    auto& entries = changed.dictionary;
    for (const auto& [original, replacement, automatic] : suggestions) {
        if (entries.size() >= mostEntries)
            break;
        // What the user has decided about a term stands, be it that its entry is disabled.
        if (std::ranges::any_of(entries, [&](const DictionaryEntry& entry) {
                return sameIgnoringCase(entry.original, original);
            }))
            continue;
        using enum DictionaryEntry::Source;
        entries.append({ Uuid::random(), original, replacement, automatic,
            automatic ? learned : suggestion, m_clock.now() });
    }
    const auto added = entries.size() - m_library.dictionary.size();
    if (added > 0)
        save(std::move(changed));
    return added;
}

} // namespace vesko
