#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/sync/TextSyncJournal.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <simdjson.h>

namespace vesko {

namespace {

void require(bool condition, TextSyncFailure::Kind otherwise)
{
    if (!condition)
        throw TextSyncFailure(otherwise);
}

// What a revision's JSON form can hold of text and dates, to tell without making it.
class Estimate {
public:
    void add(const std::string& text)
    {
        constexpr std::size_t longestEscape = 6;
        m_most += longestEscape * text.size();
        m_plain = m_plain && simdjson::validate_utf8(text);
    }
    void add(const Date& date)
    {
        using namespace std::chrono;
        m_plain = m_plain && date.time >= sys_days{ 1970y / 1 / 1 }
            && date.time < sys_days{ 9000y / 1 / 1 };
    }
    void add(const SyncedNote& note)
    {
        add(note.title);
        add(note.body);
        add(note.createdAt);
        if (note.deletedAt)
            add(*note.deletedAt);
    }
    void add(const Project& project)
    {
        add(project.name);
        add(project.createdAt);
    }
    void add(const DictionaryEntry& entry)
    {
        add(entry.original);
        add(entry.replacement);
        add(entry.createdAt);
    }

    // Whether the form certainly exists and is within the limit, whatever is to be escaped.
    bool certainlyFits() const { return m_plain && m_most <= TextSyncJournal::mostBytes; }

private:
    // Far above all keys, blanks, ids and dates of a revision with all the parents it may have.
    std::size_t m_most = 8'000;
    bool m_plain = true;
};

void requireFit(const TextSyncRevision& revision)
{
    Estimate estimate;
    if (revision.value)
        std::visit([&](const auto& held) { estimate.add(held); }, *revision.value);
    if (!estimate.certainlyFits())
        require(JsonWriter::write(revision, JsonWriter::Form::pretty).size()
                <= TextSyncJournal::mostBytes,
            TextSyncFailure::tooLarge);
}

void requireSound(const TextSyncRevision& revision)
{
    require(!revision.value || revision.value->entity() == revision.entity,
        TextSyncFailure::invalidRevision);
    require(!revision.parents.contains(revision.id), TextSyncFailure::invalidRevision);
    require(
        revision.parents.size() <= TextSyncJournal::mostParents, TextSyncFailure::invalidRevision);
    requireFit(revision);
}

// Revisions by number, for going through a graph.
struct Edge {
    std::uint32_t parent;
    std::uint32_t child;
};

// Peels the graph from the revisions without parents on; what a cycle holds is never reached.
bool isAcyclic(std::size_t count, const std::vector<Edge>& edges)
{
    std::vector<std::uint32_t> openParents(count);
    std::vector<std::uint32_t> firstChild(count + 1);
    for (const auto edge : edges) {
        ++openParents[edge.child];
        ++firstChild[edge.parent + 1];
    }
    std::partial_sum(firstChild.begin(), firstChild.end(), firstChild.begin());
    std::vector<std::uint32_t> children(edges.size());
    auto nextChild = firstChild;
    for (const auto edge : edges)
        children[nextChild[edge.parent]++] = edge.child;

    std::vector<std::uint32_t> peeled;
    for (std::uint32_t number = 0; number < count; ++number)
        if (openParents[number] == 0)
            peeled.push_back(number);
    for (std::size_t at = 0; at < peeled.size(); ++at)
        for (auto child = firstChild[peeled[at]]; child < firstChild[peeled[at] + 1]; ++child)
            if (--openParents[children[child]] == 0)
                peeled.push_back(children[child]);
    return peeled.size() == count;
}

template <class T>
void sortWithoutRepeats(std::vector<T>& list)
{
    std::ranges::sort(list);
    list.erase(std::ranges::unique(list).begin(), list.end());
}

} // namespace

// What one merge would change. The graph up to now is known to be sound, so only what touches the
// new revisions is looked at: the edges to and from them, and cycles that they could have closed.
class TextSyncJournal::Merge {
public:
    // Judges everything; throws what merge() throws.
    Merge(const TextSyncJournal& journal, const SharedArray<TextSyncRevision>& incoming)
        : m_journal(journal)
    {
        require(incoming.size() <= mostRevisions, TextSyncFailure::tooLarge);
        findNew(incoming);
        require(journal.size() + m_new.size() <= mostRevisions, TextSyncFailure::tooLarge);
        m_hasChild.resize(m_new.size());
        m_edges.reserve(m_new.size());
        m_superseded.reserve(m_new.size());
        for (std::uint32_t number = 0; number < m_new.size(); ++number) {
            linkParents(number);
            linkChildren(number);
        }
        addEdgesOfAncestors();
        require(
            isAcyclic(m_new.size() + m_known.size(), m_edges), TextSyncFailure::invalidRevision);
    }

    // Nothing of the journal changes unless all of it does.
    void applyTo(TextSyncJournal& journal)
    {
        std::vector<Pointer> revisions;
        std::vector<Node> nodes;
        std::vector<Head> newHeads;
        revisions.reserve(m_new.size());
        nodes.reserve(m_new.size());
        newHeads.reserve(m_new.size());
        auto place = static_cast<std::uint32_t>(journal.size());
        for (std::size_t number = 0; number < m_new.size(); ++number) {
            const auto& [id, revision] = m_new[number];
            revisions.push_back(revision);
            nodes.push_back({ id, place++ });
            if (!m_hasChild[number])
                newHeads.push_back({ revision->entity, id });
        }
        std::ranges::sort(newHeads);
        sortWithoutRepeats(m_superseded);
        std::ranges::sort(m_opened);

        auto changed = journal;
        changed.m_revisions.append(revisions);
        changed.m_nodes.change({}, nodes);
        changed.m_heads.change(m_superseded, newHeads);
        changed.m_gaps.change(m_filled, m_opened);
        journal = std::move(changed);
    }

private:
    struct New {
        Uuid id;
        Pointer revision;
    };
    struct Place {
        Uuid id;
        std::size_t at;

        auto operator<=>(const Place&) const = default;
    };

    // Checks each revision for itself and keeps those that the journal doesn't have.
    void findNew(const SharedArray<TextSyncRevision>& incoming)
    {
        std::vector<Place> places;
        places.reserve(incoming.size());
        for (std::size_t at = 0; at < incoming.size(); ++at)
            places.push_back({ incoming[at].id, at });
        std::ranges::sort(places);
        // What each of them has to equal. In the order of ids the search stays in a few places.
        std::vector<const TextSyncRevision*> known(incoming.size());
        for (std::size_t at = 0, first = 0; at < places.size(); ++at) {
            if (places[at].id != places[first].id)
                first = at;
            known[places[at].at]
                = at == first ? m_journal.find(places[at].id) : &incoming[places[first].at];
        }

        for (std::size_t at = 0; at < incoming.size(); ++at) {
            requireSound(incoming[at]);
            require(!known[at] || *known[at] == incoming[at], TextSyncFailure::invalidRevision);
        }
        m_new.reserve(incoming.size());
        for (const auto& place : places)
            if (!known[place.at])
                m_new.push_back({ place.id, incoming.shared(place.at) });
    }

    void linkParents(std::uint32_t number)
    {
        const auto& child = *m_new[number].revision;
        for (const auto& id : child.parents) {
            if (const auto parent = numberOfNew(id)) {
                require(m_new[*parent].revision->entity == child.entity,
                    TextSyncFailure::invalidRevision);
                m_edges.push_back({ *parent, number });
                m_hasChild[*parent] = true;
            } else if (const auto* known = m_journal.find(id)) {
                require(known->entity == child.entity, TextSyncFailure::invalidRevision);
                m_superseded.push_back({ known->entity, id });
            } else {
                m_opened.push_back({ id, child.id });
            }
        }
    }

    // The revisions that came before this one, their parent.
    void linkChildren(std::uint32_t number)
    {
        const auto& parent = *m_new[number].revision;
        const auto& gaps = m_journal.m_gaps;
        const auto first = gaps.lowerBound({ parent.id, Uuid() });
        for (auto at = first; at != gaps.end() && at->parent == parent.id; ++at) {
            require(m_journal.find(at->child)->entity == parent.entity,
                TextSyncFailure::invalidRevision);
            m_filled.push_back(*at);
        }
        if (first != gaps.end() && first->parent == parent.id) {
            m_hasChild[number] = true;
            m_late.push_back(number);
        }
    }

    // A cycle either has new revisions only, or leads from one that came before its parent up to
    // that parent: then all of it are ancestors of the parent.
    void addEdgesOfAncestors()
    {
        std::vector<std::uint32_t> open = m_late;
        std::vector<bool> seen(m_new.size());
        for (const auto number : open)
            seen[number] = true;
        std::vector<const TextSyncRevision*> known;
        while (!open.empty()) {
            const auto number = open.back();
            open.pop_back();
            const bool isNew = number < m_new.size();
            const auto& child = isNew ? *m_new[number].revision : *known[number - m_new.size()];
            for (const auto& id : child.parents) {
                if (const auto parent = numberOfNew(id)) {
                    if (!isNew)
                        m_edges.push_back({ *parent, number });
                    if (!seen[*parent])
                        open.push_back(*parent);
                    seen[*parent] = true;
                } else if (const auto* revision = m_journal.find(id)) {
                    const auto next = static_cast<std::uint32_t>(m_new.size() + known.size());
                    const auto [at, added] = m_known.try_emplace(id, next);
                    if (added) {
                        known.push_back(revision);
                        open.push_back(next);
                    }
                    m_edges.push_back({ at->second, number });
                }
            }
        }
    }

    std::optional<std::uint32_t> numberOfNew(const Uuid& id) const
    {
        const auto at = std::ranges::lower_bound(m_new, id, {}, &New::id);
        if (at == m_new.end() || at->id != id)
            return std::nullopt;
        return static_cast<std::uint32_t>(at - m_new.begin());
    }

    const TextSyncJournal& m_journal;
    std::vector<New> m_new; // ascending; a revision's place is its number
    std::vector<bool> m_hasChild; // by number
    std::vector<std::uint32_t> m_late; // the numbers of those that came after a child
    std::map<Uuid, std::uint32_t> m_known; // numbers of the others that a cycle could lead through
    std::vector<Edge> m_edges;
    std::vector<Head> m_superseded; // some of them have been before
    std::vector<Gap> m_filled; // ascending, since the new ones are
    std::vector<Gap> m_opened;
};

void TextSyncJournal::merge(const SharedArray<TextSyncRevision>& incoming)
{
    Merge(*this, incoming).applyTo(*this);
}

} // namespace vesko
