#include "VeskoCore/sync/TextSyncStore.h"

#include "VeskoCore/base/Digest.h"

#include <system_error>

namespace vesko {

namespace {

constexpr const char* documentName = "journal.json";

std::filesystem::path folderFor(const std::filesystem::path& root, std::string_view accountID)
{
    if (accountID.empty())
        throw TextSyncFailure(TextSyncFailure::invalidRevision);
    return root / "text-sync" / hexadecimal(sha256(accountID));
}

FileLock claim(FileSystem& files, const std::filesystem::path& folder)
{
    makeFolders(files, folder);
    auto lock = [&] {
        try {
            return FileLock::acquire(folder / ".lock");
        } catch (const std::system_error&) {
            throw VeskoError(VeskoError::storage);
        }
    }();
    if (!lock)
        throw VeskoError(VeskoError::libraryBusy);
    return std::move(*lock);
}

} // namespace

TextSyncStore::TextSyncStore(
    const std::filesystem::path& root, std::string_view accountID, FileSystem& files)
    : m_files(files)
    , m_folder(folderFor(root, accountID))
    , m_lock(claim(files, m_folder))
    , m_document(files, m_folder / documentName)
    , m_state(load())
{
}

TextSyncState TextSyncStore::load() const
{
    const auto status = [&] {
        try {
            return m_files.status(m_folder / documentName);
        } catch (const std::system_error&) {
            throw TextSyncFailure(TextSyncFailure::tooLarge); // for all that can be told
        }
    }();
    if (!status)
        return {};
    if (status->size > TextSyncState::mostBytes)
        throw TextSyncFailure(TextSyncFailure::tooLarge);
    const auto file = m_document.open(TextSyncState::mostBytes);
    return file ? TextSyncState::decode(file->text()) : TextSyncState();
}

void TextSyncStore::commit(TextSyncState changed)
{
    m_document.write([&](const AtomicFile::Output& output) { changed.encode(output); });
    m_state = std::move(changed);
}

SharedArray<TextSyncRevision> TextSyncStore::pending() const
{
    const auto all = m_state.journal.revisions();
    std::vector<std::shared_ptr<const TextSyncRevision>> pending;
    for (std::size_t at = 0; at < all.size(); ++at)
        if (m_state.pending.find(all[at].id))
            pending.push_back(all.shared(at));
    return SharedArray<TextSyncRevision>(std::move(pending));
}

template <class Change>
TextSyncRevision TextSyncStore::commitLocal(Change change)
{
    auto changed = m_state;
    auto revision = change(changed.journal);
    changed.pending.change({}, { revision.id });
    commit(std::move(changed));
    return revision;
}

TextSyncRevision TextSyncStore::write(const TextSyncValue& value)
{
    return commitLocal([&](TextSyncJournal& journal) { return journal.write(value); });
}

TextSyncRevision TextSyncStore::remove(const TextSyncID& entity)
{
    return commitLocal([&](TextSyncJournal& journal) { return journal.remove(entity); });
}

void TextSyncStore::mergeRemote(const SharedArray<TextSyncRevision>& incoming)
{
    auto changed = m_state;
    changed.journal.merge(incoming);
    commit(std::move(changed));
}

void TextSyncStore::acknowledge(const std::set<Uuid>& ids)
{
    auto changed = m_state;
    std::vector<Uuid> acknowledged;
    for (const auto& id : ids)
        if (changed.pending.find(id))
            acknowledged.push_back(id);
    changed.pending.change(acknowledged, {});
    commit(std::move(changed));
}

} // namespace vesko
