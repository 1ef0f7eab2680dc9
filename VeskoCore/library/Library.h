#pragma once

#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"
#include "VeskoCore/library/Note.h"
#include "VeskoCore/library/Project.h"

namespace vesko {

// The whole persisted document, held by value. A copy shares every record that did not change, so
// the store and the controller can both hold one.
struct Library {
    int schemaVersion = 1;
    SharedArray<Project> projects; // in creation order
    SharedArray<Note> notes; // in creation order
    SharedArray<DictionaryEntry> dictionary; // in insertion order, at most 1,000

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
