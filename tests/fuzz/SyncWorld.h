#pragma once

#include "VeskoCore/sync/TextSyncStore.h"
#include "tests/core/sync/LiteralJournal.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/fuzz/SyncHistory.h"

#include <memory>
#include <random>
#include <stdexcept>
#include <string>

namespace vesko {

// How often what histories are to try really happened.
struct SyncTally {
    unsigned taken = 0, refused = 0, incomplete = 0, forks = 0, repeats = 0;
    unsigned faults = 0, oldAfterCrash = 0, newAfterCrash = 0;
};

// Some replicas, each a real store on a disk of its own and beside it what it has to hold by the
// plainest rules, and the batches on the way between them.
class SyncWorld {
public:
    // A promise that was not kept, in words.
    using Broken = std::runtime_error;

    SyncWorld(unsigned replicas, SyncTally& tally);

    // Throws Broken unless store and rules do the same, a refusal changes neither memory nor disk,
    // and a store opened again has what was reported as saved.
    void take(const SyncStep& step);
    // Brings everything to everybody; throws Broken unless all are equal then and have all that
    // was ever reported as saved.
    void finish();

    // What happened so far, a line for each step.
    const std::string& story() const { return m_story; }

private:
    struct State {
        LiteralJournal journal;
        std::set<Uuid> pending;

        bool operator==(const State&) const = default;
    };
    struct Replica {
        std::string name;
        std::filesystem::path root;
        FailingFileSystem files;
        std::unique_ptr<TextSyncStore> store;
        State expected;
    };
    struct Batch {
        std::size_t to;
        std::vector<TextSyncRevision> revisions;
    };
    // Something that a store does, and what it means by the rules, where a new revision gets the id
    // that the store chose.
    struct Operation {
        std::string name;
        std::function<std::optional<TextSyncRevision>(TextSyncStore&)> run;
        std::function<void(State&, const Uuid& id)> apply;
    };

    Operation anyChange(const Replica& replica, bool removal);
    Operation mergeOf(const std::vector<TextSyncRevision>& batch);
    Operation acknowledgementBy(const Replica& replica);
    void perform(Replica& replica, const Operation& operation, SyncStep::Trouble trouble);

    void send(std::size_t from);
    void sendStrangers();
    void deliver(SyncStep::Trouble trouble);
    void lose();
    void attack(Replica& replica, SyncStep::Trouble trouble);
    void reopen(Replica& replica);

    void expectSame(const Replica& replica);
    void expect(bool kept, const std::string& promise) const;
    void tell(const std::string& line) { m_story += line + '\n'; }

    std::size_t below(std::size_t limit) { return m_random() % limit; }
    TextSyncID anyEntity();

    SyncTally& m_tally;
    TemporaryFolder m_folder;
    std::mt19937 m_random;
    std::vector<std::unique_ptr<Replica>> m_replicas;
    std::vector<Batch> m_onTheWay;
    std::vector<TextSyncRevision> m_made; // by anybody, in this order
    std::vector<TextSyncRevision> m_strangers;
    std::vector<TextSyncRevision> m_saved; // reported as such
    std::string m_story;
};

} // namespace vesko
