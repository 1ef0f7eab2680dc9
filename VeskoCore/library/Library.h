#pragma once

#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"
#include "VeskoCore/library/Note.h"
#include "VeskoCore/library/Project.h"

#include <optional>
#include <string_view>
#include <vector>

namespace vesko {

// The whole persisted document, held by value. A copy shares every record that did not change, so
// the store and the controller can both hold one.
struct Library {
    int schemaVersion = 1;
    SharedArray<Project> projects; // in creation order
    SharedArray<Note> notes; // in creation order
    SharedArray<DictionaryEntry> dictionary; // in insertion order, at most 1,000

    // The notes in the Trash or those outside it, of one project or of all, that contain the query
    // in their title, their body or a raw transcript (as TextSearch finds it, in the current
    // locale; an empty query is in every note). Newest change first, notes of one moment in the
    // order of the library.
    SharedArray<Note> filtered(
        const std::optional<Uuid>& projectID, std::string_view query, bool trash) const;
    // The terms of the dictionary that contain the query on either side; all for an empty one.
    std::vector<DictionaryEntry> terms(std::string_view query) const;

    bool operator==(const Library&) const = default;
};

template <>
inline constexpr std::tuple jsonFields<Library>{
    JsonField{ "dictionary", &Library::dictionary, JsonKey::mayBeMissing },
    JsonField{ "notes", &Library::notes },
    JsonField{ "projects", &Library::projects },
    JsonField{ "schemaVersion", &Library::schemaVersion },
};

} // namespace vesko
