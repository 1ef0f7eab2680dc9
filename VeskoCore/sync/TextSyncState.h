#pragma once

#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/sync/TextSyncJournal.h"

#include <string>

namespace vesko {

// What an account's sync keeps on this machine, and its form as a file.
struct TextSyncState {
    static constexpr std::size_t mostBytes = 33'554'432;

    TextSyncJournal journal;
    SharedSet<Uuid> pending; // revisions made here and not acknowledged; all are in the journal

    // Throws JsonError, and TextSyncFailure: unsupportedSchema, invalidRevision if something
    // unknown is pending, or why the journal would not take its own revisions.
    static TextSyncState decode(std::string text);
    // Hands out the text piece by piece. Throws TextSyncFailure::tooLarge for more than mostBytes,
    // after at most as many.
    void encode(const JsonWriter::Output& output) const;

    friend bool operator==(const TextSyncState&, const TextSyncState&) = default;
};

} // namespace vesko
