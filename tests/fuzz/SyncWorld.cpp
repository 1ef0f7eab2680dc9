#include "tests/fuzz/SyncWorld.h"

#include "tests/core/sync/SampleRevisions.h"
#include "tests/fakes/Files.h"
#include "tests/fuzz/HostileRevisions.h"

#include <algorithm>
#include <ranges>

namespace vesko {

namespace {

using Fault = FailingFileSystem::Fault;
using Trouble = SyncStep::Trouble;
constexpr unsigned entities = 3;
constexpr const char* taken = "taken";
constexpr const char* systemError = "system error";

// One of each kind.
TextSyncID entityNumber(unsigned number)
{
    return { static_cast<TextSyncID::Kind>(number), idNumber(1 + number) };
}

std::filesystem::path fileBelow(const std::filesystem::path& root)
{
    return std::filesystem::directory_iterator(root / "text-sync")->path() / "journal.json";
}

std::vector<TextSyncRevision> listOf(const LiteralJournal& journal)
{
    const auto revisions = std::views::values(journal.nodes);
    return { revisions.begin(), revisions.end() };
}

} // namespace

SyncWorld::SyncWorld(unsigned replicas, SyncTally& tally)
    : m_tally(tally)
{
    for (unsigned number = 0; number < replicas; ++number) {
        auto& replica = *m_replicas.emplace_back(std::make_unique<Replica>());
        replica.name = "replica " + std::to_string(number);
        replica.root = m_folder.path() / std::to_string(number);
        replica.files.syncs = false;
        reopen(replica);
    }
}

void SyncWorld::take(const SyncStep& step)
{
    using Kind = SyncStep::Kind;
    m_random.seed(step.choice);
    const auto number = below(m_replicas.size());
    auto& replica = *m_replicas[number];
    switch (step.kind) {
    case Kind::write:
    case Kind::remove:
        perform(replica, anyChange(replica, step.kind == Kind::remove), step.trouble);
        break;
    case Kind::send:
        send(number);
        break;
    case Kind::deliver:
        deliver(step.trouble);
        break;
    case Kind::lose:
        lose();
        break;
    case Kind::acknowledge:
        perform(replica, acknowledgementBy(replica), step.trouble);
        break;
    case Kind::strangers:
        sendStrangers();
        break;
    case Kind::attack:
        attack(replica, step.trouble);
        break;
    case Kind::reopen:
        tell(replica.name + " reopens");
        reopen(replica);
        expectSame(replica);
        break;
    }
}

void SyncWorld::finish()
{
    tell("everything is brought to everybody");
    LiteralJournal whole;
    for (const auto& replica : m_replicas)
        whole.nodes.insert(
            replica->expected.journal.nodes.begin(), replica->expected.journal.nodes.end());
    for (const auto& revision : m_strangers)
        whole.nodes.emplace(revision.id, revision);
    for (const auto& revision : m_saved)
        expect(whole.nodes.contains(revision.id) && whole.nodes.at(revision.id) == revision,
            "nothing that was reported as saved is lost");

    // Along the line and back again.
    auto& last = *m_replicas.back();
    perform(*m_replicas.front(), mergeOf(m_strangers), Trouble::none);
    for (std::size_t at = 1; at < m_replicas.size(); ++at)
        perform(
            *m_replicas[at], mergeOf(listOf(m_replicas[at - 1]->expected.journal)), Trouble::none);
    for (const auto& to : m_replicas) {
        perform(*to, mergeOf(listOf(last.expected.journal)), Trouble::none);
        reopen(*to);
        expectSame(*to);
        expect(to->expected.journal == whole, "replicas that exchanged everything are equal");
        expect(to->store->snapshot() == m_replicas.front()->store->snapshot(),
            "stores that exchanged everything are equal");
        expect(to->store->snapshot().isComplete(), "with everything there, nothing is missing");
    }
}

// Does the same in the store and by the rules. With trouble, the commit may be cut short: then the
// old state must stand, and after a crash the old or the new.
void SyncWorld::perform(Replica& replica, const Operation& operation, Trouble trouble)
{
    static constexpr std::size_t mostCalls = 20;
    auto& files = replica.files;
    const auto before = replica.expected;
    const auto file = fileBelow(replica.root);
    const auto bytesBefore = bytesOf(file);
    files.fault = trouble == Trouble::fault ? Fault::error
        : trouble == Trouble::crash         ? Fault::errors
                                            : Fault::none;
    files.number = EIO;
    files.at = static_cast<int>(below(mostCalls));
    files.calls = 0;
    std::optional<TextSyncRevision> made;
    const auto verdict = verdictOf([&] { made = operation.run(*replica.store); });
    files.fault = Fault::none;
    if (trouble == Trouble::crash)
        reopen(replica);

    const auto now = replica.store->snapshot().revisions();
    if (!made)
        for (const auto& revision : now)
            if (!before.journal.nodes.contains(revision.id))
                made = revision;
    auto after = before;
    const auto byTheRules = verdictOf([&] { operation.apply(after, made ? made->id : Uuid()); });
    tell(replica.name + ' ' + operation.name + ": " + verdict
        + (trouble == Trouble::crash ? ", and reopens" : ""));

    bool isNew = false;
    if (verdict == systemError) {
        expect(trouble != Trouble::none && byTheRules == taken, "nothing fails by itself");
        isNew = trouble == Trouble::crash && bytesOf(file) != bytesBefore;
        (trouble == Trouble::fault ? m_tally.faults
                : isNew            ? m_tally.newAfterCrash
                                   : m_tally.oldAfterCrash)
            += 1;
    } else {
        expect(verdict == byTheRules, "the rules say: " + byTheRules);
        isNew = verdict == taken;
        (verdict == taken ? m_tally.taken : m_tally.refused) += 1;
    }
    if (isNew)
        replica.expected = std::move(after);
    else
        expect(bytesOf(file) == bytesBefore, "what was not taken leaves the file as it was");
    expectSame(replica);
    for (const auto& [id, revision] : replica.expected.journal.nodes)
        if (!before.journal.nodes.contains(id)) {
            if (verdict == taken)
                m_saved.push_back(revision);
            m_made.push_back(revision);
        }
    m_tally.repeats
        += verdict == taken && replica.expected.journal == before.journal && !made ? 1 : 0;
}

SyncWorld::Operation SyncWorld::anyChange(const Replica& replica, bool removal)
{
    const auto entity = anyEntity();
    const auto name = entity.id.text().back();
    std::optional<TextSyncValue> value;
    if (!removal) {
        const auto text = std::string("text ") + static_cast<char>('a' + below(26));
        if (entity.kind == TextSyncID::Kind::note)
            value = noteWithBody(entity.id, text);
        else if (entity.kind == TextSyncID::Kind::project)
            value = projectNamed(entity.id, text);
        else
            value = entryFor(entity.id, text);
    }
    m_tally.incomplete += replica.expected.journal.isComplete() ? 0 : 1;
    m_tally.forks += replica.expected.journal.heads(entity).size() > 1 ? 1 : 0;
    return { std::string(removal ? "removes " : "writes ") + name,
        [=](TextSyncStore& store) { return removal ? store.remove(entity) : store.write(*value); },
        [=](State& state, const Uuid& id) {
            state.journal.change(id, entity, value);
            state.pending.insert(id);
        } };
}

SyncWorld::Operation SyncWorld::mergeOf(const std::vector<TextSyncRevision>& batch)
{
    return { "gets " + std::to_string(batch.size()),
        [=](TextSyncStore& store) {
            store.mergeRemote(SharedArray(batch));
            return std::nullopt;
        },
        [=](State& state, const Uuid&) { state.journal.merge(batch); } };
}

SyncWorld::Operation SyncWorld::acknowledgementBy(const Replica& replica)
{
    std::set<Uuid> ids;
    for (const auto& id : replica.expected.pending)
        if (below(2) == 0)
            ids.insert(id);
    if (!m_made.empty())
        ids.insert(m_made[below(m_made.size())].id);
    return { "hears that " + std::to_string(ids.size()) + " arrived",
        [=](TextSyncStore& store) {
            store.acknowledge(ids);
            return std::nullopt;
        },
        [=](State& state, const Uuid&) {
            std::erase_if(state.pending, [&](const Uuid& id) { return ids.contains(id); });
        } };
}

void SyncWorld::send(std::size_t from)
{
    const auto& replica = *m_replicas[from];
    const auto to = (from + 1 + below(m_replicas.size() - 1)) % m_replicas.size();
    Batch batch{ to, {} };
    const bool onlyPending = below(2) == 0;
    const auto share = 1 + below(3);
    for (const auto& revision : m_made)
        if (replica.expected.journal.nodes.contains(revision.id)
            && (!onlyPending || replica.expected.pending.contains(revision.id))
            && below(share) == 0)
            batch.revisions.push_back(revision);
    std::ranges::shuffle(batch.revisions, m_random);
    if (!batch.revisions.empty() && below(4) == 0)
        batch.revisions.push_back(batch.revisions.front());
    tell(replica.name + " sends " + std::to_string(batch.revisions.size()) + " to "
        + m_replicas[to]->name);
    m_onTheWay.push_back(std::move(batch));
}

void SyncWorld::sendStrangers()
{
    const auto entity = anyEntity();
    std::vector<TextSyncRevision> line;
    for (auto count = 1 + below(3); count > 0; --count) {
        TextSyncRevision revision{ Uuid::random(), entity, {}, std::nullopt };
        if (!line.empty())
            revision.parents.insert(line.back().id);
        for (const auto& known : m_made)
            if (known.entity == entity && below(4) == 0 && revision.parents.size() < 4)
                revision.parents.insert(known.id);
        line.push_back(revision);
    }
    tell("strangers make a line of " + std::to_string(line.size()));
    for (const auto& revision : line) {
        m_strangers.push_back(revision);
        m_onTheWay.push_back({ below(m_replicas.size()), { revision } });
    }
    std::ranges::shuffle(m_onTheWay, m_random);
}

void SyncWorld::deliver(Trouble trouble)
{
    if (m_onTheWay.empty())
        return;
    const auto at = below(m_onTheWay.size());
    const auto batch = m_onTheWay[at];
    if (below(4) > 0)
        m_onTheWay.erase(m_onTheWay.begin() + static_cast<std::ptrdiff_t>(at));
    perform(*m_replicas[batch.to], mergeOf(batch.revisions), trouble);
}

void SyncWorld::lose()
{
    if (m_onTheWay.empty())
        return;
    tell("something gets lost");
    m_onTheWay.erase(m_onTheWay.begin() + static_cast<std::ptrdiff_t>(below(m_onTheWay.size())));
}

void SyncWorld::attack(Replica& replica, Trouble trouble)
{
    auto attack = hostileRevisions(replica.expected.journal, m_random);
    std::vector<TextSyncRevision> batch;
    for (const auto& revision : m_made)
        if (below(4) == 0)
            batch.push_back(revision);
    const auto at = static_cast<std::ptrdiff_t>(below(batch.size() + 1));
    batch.insert(batch.begin() + at, attack.begin(), attack.end());
    // What the rules let pass would part the replicas for ever: it is up to those who sign what
    // they send.
    auto tried = replica.expected.journal;
    if (verdictOf([&] { tried.merge(batch); }) == taken)
        return;
    auto operation = mergeOf(batch);
    operation.name = "is attacked with " + std::to_string(attack.size());
    perform(replica, operation, trouble);
}

void SyncWorld::reopen(Replica& replica)
{
    replica.store.reset();
    replica.store = std::make_unique<TextSyncStore>(replica.root, "account", replica.files);
}

void SyncWorld::expectSame(const Replica& replica)
{
    const auto journal = replica.store->snapshot();
    const auto& [expected, pending] = replica.expected;
    expect(journal.revisions() == SharedArray(expected.revisions()), "the revisions are those");
    expect(journal.isComplete() == expected.isComplete(), "it is complete if no parent is missing");
    for (unsigned number = 0; number < entities; ++number) {
        const auto entity = entityNumber(number);
        expect(journal.heads(entity) == SharedArray(expected.heads(entity)),
            "the heads are those that nothing supersedes");
    }
    expect(idsOf(replica.store->pending()) == std::vector(pending.begin(), pending.end()),
        "what was made here and not acknowledged is pending");
}

void SyncWorld::expect(bool kept, const std::string& promise) const
{
    if (!kept)
        throw Broken(promise);
}

TextSyncID SyncWorld::anyEntity()
{
    return entityNumber(static_cast<unsigned>(below(entities)));
}

} // namespace vesko
