#pragma once

#include "tests/core/sync/LiteralJournal.h"

#include <random>

namespace vesko {

// Revisions that try to get past a rule of the journal: mostly at least one of them breaks one, but
// the journal may be such that it doesn't.
std::vector<TextSyncRevision> hostileRevisions(const LiteralJournal& journal, std::mt19937& random);

} // namespace vesko
