#pragma once

#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/sync/SharedList.h"
#include "VeskoCore/sync/SharedSet.h"
#include "VeskoCore/sync/TextSyncFailure.h"
#include "VeskoCore/sync/TextSyncRevision.h"

#include <ranges>

namespace vesko {

// The graph of all revisions of all text of one account, without clock, device or network. Any
// number of replicas add revisions, exchange them in any order and any portions, and end with the
// same graph. Revisions stay for good. Forks are shown, as several heads, and never resolved by
// itself: the next local change of the entity supersedes all its heads.
//
// A plain value: a copy costs a few reference counts and shares every revision. Whatever fails
// leaves the journal as it was.
class TextSyncJournal {
public:
    static constexpr std::size_t mostRevisions = 50'000;
    static constexpr std::size_t mostParents = 64;
    static constexpr std::size_t mostBytes = 512'000; // of a revision's pretty JSON form

    // All revisions, ascending by id, as in all lists of revisions here. The order means nothing,
    // except that it is the same everywhere.
    SharedArray<TextSyncRevision> revisions() const;
    // The same to go through, as long as this journal is neither changed nor gone.
    auto inOrder() const
    {
        return std::views::transform(m_nodes, [this](const Node& node) -> const TextSyncRevision& {
            return *m_revisions[node.place];
        });
    }
    std::size_t size() const { return m_nodes.size(); }
    // The revision of that id, or null; it stays as long as this journal is not changed.
    const TextSyncRevision* find(const Uuid& id) const;

    // Whether every parent of every revision is here.
    bool isComplete() const { return m_gaps.empty(); }

    // The revisions of the entity that none of its revisions has as a parent. Several are a fork.
    SharedArray<TextSyncRevision> heads(const TextSyncID& entity) const;

    // Adds a revision that supersedes all heads of its entity, with this content as it will read
    // after a journey through a file, or as a tombstone. Throws TextSyncFailure: incompleteHistory
    // unless isComplete(), invalidRevision for more heads than a revision may have parents,
    // tooLarge; and JsonError for content that JSON can't hold.
    TextSyncRevision write(const TextSyncValue& value);
    TextSyncRevision remove(const TextSyncID& entity);

    // Takes all the revisions or none. Parents may be missing, and come later or never; a revision
    // that is here already is fine if it is the same. Throws TextSyncFailure for the first revision
    // that breaks a rule, else for the number of all, else for the graph: tooLarge, or
    // invalidRevision for another content under a known id, for content of another entity, for
    // too many parents or one of another entity, and for a cycle; and JsonError as above.
    void merge(const SharedArray<TextSyncRevision>& incoming);

    friend bool operator==(const TextSyncJournal& a, const TextSyncJournal& b)
    {
        return a.revisions() == b.revisions();
    }

private:
    using Pointer = std::shared_ptr<const TextSyncRevision>;

    struct Node {
        Uuid id;
        std::uint32_t place; // in m_revisions

        friend auto operator<=>(const Node& a, const Node& b) { return a.id <=> b.id; }
        friend bool operator==(const Node& a, const Node& b) { return a.id == b.id; }
    };
    struct Head {
        TextSyncID entity;
        Uuid id;

        auto operator<=>(const Head&) const = default;
    };
    struct Gap {
        Uuid parent; // that is not here
        Uuid child; // that is

        auto operator<=>(const Gap&) const = default;
    };
    class Merge;

    TextSyncRevision change(const TextSyncID& entity, std::optional<TextSyncValue> value);

    // As they came. Apart from the nodes, so that copying a block of those visits no revision.
    SharedList<Pointer> m_revisions;
    SharedSet<Node> m_nodes;
    // What the graph would tell if it were gone through each time.
    SharedSet<Head> m_heads;
    SharedSet<Gap> m_gaps;
};

} // namespace vesko
