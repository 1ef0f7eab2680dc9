#pragma once

#include "VeskoCore/sync/TextSyncFailure.h"
#include "VeskoCore/sync/TextSyncRevision.h"

#include <map>
#include <vector>

namespace vesko {

// The rules of a journal in their plainest form: nothing is kept, everything is computed anew from
// all revisions each time. What the real journal does quickly has to end as it does here.
struct LiteralJournal {
    std::map<Uuid, TextSyncRevision> nodes;

    std::vector<TextSyncRevision> revisions() const;
    bool isComplete() const;
    std::vector<TextSyncRevision> heads(const TextSyncID& entity) const;
    // What a local change adds, with this id for the new revision.
    void change(
        const Uuid& id, const TextSyncID& entity, const std::optional<TextSyncValue>& value);
    void merge(const std::vector<TextSyncRevision>& incoming);

    bool operator==(const LiteralJournal&) const = default;
};

} // namespace vesko
