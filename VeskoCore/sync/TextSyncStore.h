#pragma once

#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/FileLock.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/sync/TextSyncState.h"

#include <string_view>

namespace vesko {

// Owns the journal of one account on this machine and what of it no remote has acknowledged yet:
// one folder, one lock, "journal.json". It knows no network: a client sends pending(), reports
// what arrived with acknowledge(), and hands what it received to mergeRemote(). Operations block
// and are to be called one at a time, on whichever thread the caller likes. Each change is on disk
// when it returns; one that throws leaves memory and disk as they were.
class TextSyncStore {
public:
    // Opens the account's journal below an absolute path. The account's name does not stand on
    // disk. Holds the lock until destroyed. The file system must outlive the store.
    // Throws TextSyncFailure::invalidRevision for an empty account; std::system_error when the
    // folder can't be made; VeskoError storage or libraryBusy when the lock can't be opened or
    // had; TextSyncFailure::tooLarge for a file beyond TextSyncState::mostBytes or of unknown
    // size; std::system_error, or what TextSyncState::decode() throws, for an unreadable one. The
    // file then stays as it was: it is neither repaired nor set aside.
    TextSyncStore(const std::filesystem::path& root, std::string_view accountID,
        FileSystem& files = FileSystem::posix());

    TextSyncJournal snapshot() const { return m_state.journal; }

    // Revisions made here and not acknowledged, in the order of the journal.
    SharedArray<TextSyncRevision> pending() const;

    // As the journal's operations of these names; what write() and remove() make is pending. They
    // throw what those do, TextSyncFailure::tooLarge when the file would become too large, and
    // std::system_error when it can't be written.
    TextSyncRevision write(const TextSyncValue& value);
    TextSyncRevision remove(const TextSyncID& entity);
    void mergeRemote(const SharedArray<TextSyncRevision>& incoming);

    // These are pending no more; others among the ids have no effect. Writes the file in any case.
    void acknowledge(const std::set<Uuid>& ids);

private:
    TextSyncState load() const;
    // Saves a changed copy of the state and, only when that went well, makes it the state.
    void commit(TextSyncState changed);
    template <class Change>
    TextSyncRevision commitLocal(Change change);

    FileSystem& m_files;
    std::filesystem::path m_folder;
    FileLock m_lock;
    AtomicFile m_document;
    TextSyncState m_state;
};

} // namespace vesko
