#pragma once

#include "VeskoCore/sync/TextSyncStore.h"
#include "tests/core/sync/SampleRevisions.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <sstream>

namespace vesko {

// A root folder that doesn't exist yet, and where the account named "account" will be below it.
class TextSyncStoreFixture : public testing::Test {
protected:
    TextSyncStore opened() { return { root, "account", files }; }

    void putJournal(const std::string& text) const
    {
        std::filesystem::create_directories(account);
        putBytes(journal, text);
    }
    TextSyncState saved() const { return TextSyncState::decode(bytesOf(journal)); }

    TemporaryFolder folder;
    const std::filesystem::path root = folder.path() / "data" / "Vesko";
    const std::filesystem::path account
        = root / "text-sync" / "9af211329b2fc82e5efe906062c730082819b23fe8394bc435e0b1bf0458eb54";
    const std::filesystem::path journal = account / "journal.json";
    FailingFileSystem files;
};

} // namespace vesko
