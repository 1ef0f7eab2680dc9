#pragma once

#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/sync/TextSyncState.h"

#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace vesko {

// An id that tests can name: 0…0 with the number at its end, so that ids sort as numbers do.
Uuid idNumber(unsigned number);
// A date so many seconds after a fixed whole second.
Date atSecond(double seconds);

Note sampleNote(const Uuid& id);
SyncedNote noteWithBody(const Uuid& id, const std::string& body);
Project projectNamed(const Uuid& id, const std::string& name);
DictionaryEntry entryFor(const Uuid& id, const std::string& original);

// A revision of the project by that id, named after it.
TextSyncRevision projectRevision(
    const Uuid& id, std::vector<Uuid> parents = {}, const Uuid& project = idNumber(900'000));
TextSyncRevision tombstone(
    const Uuid& id, std::vector<Uuid> parents = {}, const Uuid& project = idNumber(900'000));
TextSyncID projectID(const Uuid& project = idNumber(900'000));

// Number 1 without a parent, and each of the others after the one before.
std::vector<TextSyncRevision> chain(unsigned length);

// A revision of a note whose pretty JSON form takes exactly so many bytes.
TextSyncRevision revisionOfSize(const Uuid& id, std::size_t bytes);

std::string textOf(const TextSyncState& state);
std::vector<Uuid> idsOf(const SharedArray<TextSyncRevision>& revisions);

// The failure that this ends in, or nothing.
template <class Work>
std::optional<TextSyncFailure::Kind> failureOf(Work work)
{
    try {
        work();
    } catch (const TextSyncFailure& failure) {
        return failure.kind();
    }
    return std::nullopt;
}

// What came of it, in a word: "taken", or what it was refused with.
template <class Work>
std::string verdictOf(Work work)
{
    try {
        work();
        return "taken";
    } catch (const TextSyncFailure& failure) {
        return "failure " + std::to_string(failure.kind());
    } catch (const JsonError&) {
        return "JSON error";
    } catch (const std::system_error&) {
        return "system error";
    }
}

// NOLINTBEGIN(readability-identifier-naming): GoogleTest's name
void PrintTo(const TextSyncRevision& revision, std::ostream* out);
void PrintTo(const Uuid& id, std::ostream* out);
// NOLINTEND(readability-identifier-naming)

} // namespace vesko
