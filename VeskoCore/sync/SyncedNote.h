#pragma once

#include "VeskoCore/library/Note.h"

namespace vesko {

// The part of a note that travels: its text, without its recordings and without updatedAt.
struct SyncedNote {
    Uuid id; // the note's
    NoteKind kind = NoteKind::text;
    std::string title;
    std::string body;
    std::optional<Uuid> projectID;
    Date createdAt;
    std::optional<Date> deletedAt; // set: in the Trash, which is not yet a removal

    SyncedNote() = default;
    explicit SyncedNote(const Note& note)
        : id(note.id)
        , kind(note.kind)
        , title(note.title)
        , body(note.body)
        , projectID(note.projectID)
        , createdAt(note.createdAt)
        , deletedAt(note.deletedAt)
    {
    }

    bool operator==(const SyncedNote&) const = default;
};

template <>
inline constexpr std::tuple jsonFields<SyncedNote>{
    JsonField{ "body", &SyncedNote::body },
    JsonField{ "createdAt", &SyncedNote::createdAt },
    JsonField{ "deletedAt", &SyncedNote::deletedAt },
    JsonField{ "id", &SyncedNote::id },
    JsonField{ "kind", &SyncedNote::kind },
    JsonField{ "projectID", &SyncedNote::projectID },
    JsonField{ "title", &SyncedNote::title },
};

} // namespace vesko
