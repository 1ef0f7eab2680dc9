#pragma once

#include "VeskoCore/library/Recording.h"

namespace vesko {

enum class NoteKind { dictation, voice, text };

// One text document, with the recordings that fed it.
struct Note {
    Uuid id;
    NoteKind kind = NoteKind::text; // what started it
    std::string title;
    std::string body;
    std::optional<Uuid> projectID;
    Date createdAt;
    Date updatedAt;
    std::optional<Date> deletedAt; // set: the note is in the Trash
    std::vector<Recording> recordings; // in creation order

    bool operator==(const Note&) const = default;
};

} // namespace vesko
