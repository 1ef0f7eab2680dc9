#pragma once

#include <functional>
#include <vector>

namespace vesko {

// Something that happens among replicas. Whatever steps are left out before it, it means something,
// so that a history can be shortened anywhere.
struct SyncStep {
    enum class Kind {
        write,
        remove,
        send, // part of what a replica has goes on its way to another
        deliver, // something that is on its way arrives, and may arrive again
        lose, // something that is on its way never arrives
        acknowledge,
        strangers, // revisions of replicas that are not here go on their way, each for itself
        attack, // a batch arrives that the replica must not take
        reopen,
    };
    enum class Trouble {
        none,
        fault, // one call of the commit fails
        crash, // from some call of the commit on nothing gets to the disk, and the replica reopens
    };

    Kind kind;
    unsigned choice = 0; // decides whatever else is random about it
    Trouble trouble = Trouble::none;
};

using SyncHistory = std::vector<SyncStep>;

SyncHistory randomHistory(unsigned seed, std::size_t length);

// What is left of a failing history when no step can be left out of it any more.
SyncHistory shortened(SyncHistory history, const std::function<bool(const SyncHistory&)>& fails);

} // namespace vesko
