// What a store finds after a loss of power at any moment of a change, whatever of it had reached
// the disk by then.

#include "tests/core/library/LibraryFixture.h"
#include "tests/fakes/RecordedDisk.h"

#include <functional>

namespace vesko {
namespace {

class LibraryStorePowerLossTest : public LibraryFixture {
protected:
    // The documents, or "none", that stores find which open what is left of the change.
    std::set<std::string> foundAfter(const std::function<void(LibraryStore&)>& change)
    {
        RecordedDisk disk(root);
        {
            LibraryStore store(root, clock, disk);
            disk.begin();
            change(store);
        }
        std::set<std::string> found;
        for (const auto& state : disk.afterPowerLoss()) {
            const TemporaryFolder later;
            for (const auto& [name, bytes] : state)
                putBytes(later.path() / name, bytes);
            const auto file = later.path() / "library.json";
            found.insert(std::filesystem::exists(file) ? bytesOf(file) : "none");
            EXPECT_NO_THROW(LibraryStore(later.path(), clock));
        }
        return found;
    }
    // Old or new, never neither, and each of them somewhere.
    void expectOldOrNew(const std::function<void(LibraryStore&)>& change)
    {
        const auto file = root / "library.json";
        const std::string before = std::filesystem::exists(file) ? bytesOf(file) : "none";
        const auto found = foundAfter(change);
        EXPECT_EQ(found, (std::set<std::string>{ before, bytesOf(file) }));
        EXPECT_EQ(found.size(), 2U);
    }
};

TEST_F(LibraryStorePowerLossTest, ANewLibraryIsThereOrNot)
{
    expectOldOrNew([](LibraryStore& store) { store.createNote(NoteKind::text, std::nullopt); });
}

TEST_F(LibraryStorePowerLossTest, EachChangeIsThereOrNot)
{
    auto recording = recordingWith(RecordingStatus::recorded, { AttemptStatus::ready });
    putNote(recording);
    expectOldOrNew([&](LibraryStore& store) { store.finishRecording(recording.id, 2); });
    expectOldOrNew([&](LibraryStore& store) {
        store.editNote(recording.noteID, "title", "body", std::nullopt);
    });
    expectOldOrNew([&](LibraryStore& store) { store.trashNotes({ recording.noteID }); });
    // And with a backup from here on.
    expectOldOrNew([](LibraryStore& store) { store.createProject("Home"); });
}

TEST_F(LibraryStorePowerLossTest, OfTwoChangesNoneComesWithoutTheOther)
{
    put(Library());
    const auto before = bytesOf(root / "library.json");
    std::string between;
    const auto found = foundAfter([&](LibraryStore& store) {
        store.createProject("Home");
        between = bytesOf(root / "library.json");
        store.createProject("Work");
    });
    EXPECT_EQ(found, (std::set<std::string>{ before, between, bytesOf(root / "library.json") }));
}

} // namespace
} // namespace vesko
