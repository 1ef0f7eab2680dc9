// What a store finds after a loss of power at any moment of a change, whatever of it had reached
// the disk by then.

#include "tests/core/sync/TextSyncStoreFixture.h"
#include "tests/fakes/RecordedDisk.h"

#include <functional>

namespace vesko {
namespace {

class TextSyncStorePowerLossTest : public TextSyncStoreFixture {
protected:
    // Old or new, never neither, and each of them somewhere.
    void expectOldOrNew(const std::function<void(TextSyncStore&)>& change)
    {
        const auto present
            = [&] { return std::filesystem::exists(journal) ? bytesOf(journal) : "none"; };
        const auto before = present();
        RecordedDisk disk(account);
        {
            TextSyncStore store(root, "account", disk);
            disk.begin();
            change(store);
        }
        std::set<std::string> found;
        for (const auto& state : disk.afterPowerLoss()) {
            const auto file = state.find("journal.json");
            found.insert(file == state.end() ? "none" : file->second);
        }
        EXPECT_EQ(found, (std::set<std::string>{ before, present() }));
        EXPECT_EQ(found.size(), 2U);
    }
};

TEST_F(TextSyncStorePowerLossTest, EachChangeIsThereOrNot)
{
    const auto id = idNumber(900'000);
    expectOldOrNew([&](TextSyncStore& store) { store.write(projectNamed(id, "Home")); });
    expectOldOrNew([&](TextSyncStore& store) { store.write(projectNamed(id, "Work")); });
    expectOldOrNew(
        [&](TextSyncStore& store) { store.mergeRemote({ projectRevision(idNumber(50)) }); });
    expectOldOrNew([&](TextSyncStore& store) {
        const auto ids = idsOf(store.pending());
        store.acknowledge({ ids.begin(), ids.end() });
    });
}

} // namespace
} // namespace vesko
