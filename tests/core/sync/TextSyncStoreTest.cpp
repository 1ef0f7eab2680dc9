#include "VeskoCore/base/JsonError.h"
#include "tests/core/sync/TextSyncStoreFixture.h"

#include <sys/stat.h>
#include <sys/wait.h>

using namespace vesko;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

using Failure = TextSyncFailure;

class TextSyncStoreTest : public TextSyncStoreFixture {
protected:
    // The operation fails this way and leaves memory and disk as they were.
    template <class Operation>
    void expectRefused(
        TextSyncStore& store, TextSyncFailure::Kind failure, Operation operation) const
    {
        const auto before = store.snapshot();
        const auto pending = idsOf(store.pending());
        const auto disk = contentOf(root);
        EXPECT_THAT(failureOf(operation), Optional(failure));
        EXPECT_EQ(store.snapshot(), before);
        EXPECT_EQ(idsOf(store.pending()), pending);
        EXPECT_EQ(contentOf(root), disk);
    }

    ino_t inodeOfJournal() const
    {
        struct stat raw{};
        EXPECT_EQ(stat(journal.c_str(), &raw), 0);
        return raw.st_ino;
    }
};

} // namespace

TEST_F(TextSyncStoreTest, aNewStoreIsEmptyAndWritesNothing)
{
    const auto store = opened();
    EXPECT_EQ(store.snapshot(), TextSyncJournal());
    EXPECT_TRUE(store.pending().empty());
    EXPECT_FALSE(std::filesystem::exists(journal));
}

TEST_F(TextSyncStoreTest, foldersAndFilesAreTheOwnersAlone)
{
    auto store = opened();
    store.write(projectNamed(idNumber(1), "Home"));
    for (const auto& made : { root, root / "text-sync", account })
        EXPECT_EQ(permissionsOf(made), 0700) << made;
    EXPECT_EQ(permissionsOf(account / ".lock"), 0600);
    EXPECT_EQ(bytesOf(account / ".lock"), "");
    EXPECT_EQ(permissionsOf(journal), 0600);
    EXPECT_THAT(contentOf(account), testing::SizeIs(2));
}

TEST_F(TextSyncStoreTest, accountsAreApartAlsoByTheCaseOfTheirLetters)
{
    auto store = opened();
    TextSyncStore other(root, "Account", files);
    store.write(projectNamed(idNumber(1), "Home"));
    EXPECT_EQ(other.snapshot().size(), 0u);
    other.remove(projectID());
    EXPECT_EQ(store.snapshot().size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(root / "text-sync"
        / "7e1b0d5641f2640ce9a953ec231eea2c27a2a7633f7d3c273e5735e2b30c10b7" / "journal.json"));
}

TEST_F(TextSyncStoreTest, anEmptyAccountIsRefusedBeforeAnythingIsMade)
{
    EXPECT_THAT(
        failureOf([&] { TextSyncStore(root, "", files); }), Optional(Failure::invalidRevision));
    EXPECT_FALSE(std::filesystem::exists(root));
}

TEST_F(TextSyncStoreTest, theFileReadsLikeThis)
{
    auto store = opened();
    store.mergeRemote({ tombstone(idNumber(2), { idNumber(1) }, idNumber(3)) });
    EXPECT_EQ(bytesOf(journal), R"({
  "journal" : {
    "revisions" : [
      {
        "entity" : {
          "id" : "00000000-0000-0000-0000-000000000003",
          "kind" : "project"
        },
        "id" : "00000000-0000-0000-0000-000000000002",
        "parents" : [
          "00000000-0000-0000-0000-000000000001"
        ]
      }
    ],
    "schema" : 1
  },
  "pending" : [

  ],
  "schema" : 1
})");
}

TEST_F(TextSyncStoreTest, whatIsWrittenIsPendingUntilItIsAcknowledgedAlsoAfterOpeningAgain)
{
    TextSyncRevision written, removed;
    {
        auto store = opened();
        written = store.write(noteWithBody(idNumber(1), "Bread"));
        removed = store.remove(projectID());
        EXPECT_THAT(idsOf(store.pending()),
            ElementsAre(std::min(written.id, removed.id), std::max(written.id, removed.id)));
    }
    {
        auto store = opened();
        EXPECT_EQ(store.pending().size(), 2u);
        EXPECT_EQ(*store.snapshot().find(written.id), written);
        EXPECT_EQ(*store.snapshot().find(removed.id), removed);
        store.acknowledge({ written.id });
        EXPECT_EQ(store.pending(), SharedArray{ removed });
    }
    {
        auto store = opened();
        EXPECT_EQ(store.pending(), SharedArray{ removed });
        store.acknowledge({ removed.id });
        EXPECT_TRUE(store.pending().empty());
    }
    const auto store = opened();
    EXPECT_TRUE(store.pending().empty());
    EXPECT_EQ(store.snapshot().size(), 2u);
}

TEST_F(TextSyncStoreTest, aStoreOpenedAgainIsTheSameThatWasClosed)
{
    TextSyncJournal before;
    {
        auto store = opened();
        auto note = noteWithBody(idNumber(1), "Bread / \"butter\"\n\xF0\x9F\x8D\x9E");
        note.createdAt = atSecond(0.75);
        note.deletedAt = atSecond(1.5);
        store.write(note);
        store.write(entryFor(idNumber(2), "vesco"));
        store.mergeRemote(SharedArray(chain(5)));
        before = store.snapshot();
    }
    EXPECT_EQ(opened().snapshot(), before);
}

TEST_F(TextSyncStoreTest, aSnapshotStaysAsItWas)
{
    auto store = opened();
    const auto snapshot = store.snapshot();
    store.remove(projectID());
    EXPECT_EQ(snapshot.size(), 0u);
}

TEST_F(TextSyncStoreTest, whatComesFromARemoteIsNotPending)
{
    auto store = opened();
    store.mergeRemote(SharedArray(chain(3)));
    EXPECT_TRUE(store.pending().empty());
    EXPECT_EQ(saved().journal, store.snapshot());
}

TEST_F(TextSyncStoreTest, aRepeatFromARemoteIsNoAcknowledgement)
{
    auto store = opened();
    const auto written = store.write(projectNamed(idNumber(1), "Home"));
    store.mergeRemote({ written });
    EXPECT_EQ(store.pending(), SharedArray{ written });
}

TEST_F(TextSyncStoreTest, remoteRevisionsMayComeBeforeTheirParents)
{
    auto store = opened();
    const auto revisions = chain(2);
    store.mergeRemote({ revisions[1] });
    EXPECT_EQ(saved().journal.revisions(), SharedArray{ revisions[1] });
    expectRefused(
        store, Failure::incompleteHistory, [&] { store.write(projectNamed(idNumber(1), "Home")); });
    expectRefused(store, Failure::incompleteHistory, [&] { store.remove(projectID()); });
    store.mergeRemote({ revisions[0] });
    store.remove(projectID());
    EXPECT_EQ(saved().journal.size(), 3u);
}

TEST_F(TextSyncStoreTest, aRefusedChangeLeavesEverythingAsItWas)
{
    auto store = opened();
    store.write(projectNamed(idNumber(1), "Home"));
    expectRefused(store, Failure::tooLarge,
        [&] { store.write(noteWithBody(idNumber(1), std::string(512'000, 'x'))); });
    expectRefused(store, Failure::invalidRevision, [&] {
        store.mergeRemote(
            { projectRevision(idNumber(1)), projectRevision(idNumber(2), { idNumber(2) }) });
    });
    const auto disk = contentOf(root);
    EXPECT_THROW(store.write(noteWithBody(idNumber(1), "\xFF")), JsonError);
    EXPECT_EQ(contentOf(root), disk);
}

TEST_F(TextSyncStoreTest, acknowledgingWhatIsNotPendingHasNoEffect)
{
    auto store = opened();
    const auto written = store.write(projectNamed(idNumber(1), "Home"));
    store.mergeRemote(SharedArray(chain(2)));
    store.acknowledge({ idNumber(1), idNumber(999) });
    EXPECT_EQ(store.pending(), SharedArray{ written });
    EXPECT_EQ(store.snapshot().size(), 3u);
}

TEST_F(TextSyncStoreTest, acknowledgingNothingWritesTheFileAllTheSame)
{
    auto store = opened();
    store.acknowledge({});
    const auto inode = inodeOfJournal();
    const auto bytes = bytesOf(journal);
    // The old file is kept from giving its number to the new one.
    std::filesystem::create_hard_link(journal, account / "old");
    store.acknowledge({});
    EXPECT_NE(inodeOfJournal(), inode);
    EXPECT_EQ(bytesOf(journal), bytes);
}

TEST_F(TextSyncStoreTest, theSecondStoreOfAnAccountFindsItBusy)
{
    const auto expectBusy = [&] {
        try {
            opened();
            return false;
        } catch (const VeskoError& error) {
            return error == VeskoError(VeskoError::libraryBusy);
        }
    };
    {
        const auto store = opened();
        EXPECT_TRUE(expectBusy());
        const pid_t child = fork();
        if (child == 0)
            _exit(expectBusy() ? 0 : 1);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << "from another process";
    }
    EXPECT_NO_THROW(opened());
}

TEST_F(TextSyncStoreTest, aFolderThatCannotBeMadeIsTheSystemsError)
{
    putBytes(folder.path() / "data", "in the way");
    EXPECT_THROW(opened(), std::system_error);
}

TEST_F(TextSyncStoreTest, aLockThatCannotBeOpenedIsAFailureOfStorage)
{
    std::filesystem::create_directories(account / ".lock");
    try {
        opened();
        ADD_FAILURE();
    } catch (const VeskoError& error) {
        EXPECT_EQ(error, VeskoError(VeskoError::storage));
    }
}

TEST_F(TextSyncStoreTest, aFileOfExactly32MiBIsReadAndOneByteMoreIsNot)
{
    TextSyncState state;
    state.journal.merge(SharedArray(chain(3)));
    auto text = textOf(state);
    text.append(33'554'432 - text.size(), ' ');
    putJournal(text);
    EXPECT_EQ(opened().snapshot(), state.journal);

    text += ' ';
    putJournal(text);
    EXPECT_THAT(failureOf([&] { opened(); }), Optional(Failure::tooLarge));
    EXPECT_EQ(bytesOf(journal).size(), 33'554'433u);
    // It was judged by its size: nothing in it was found to be no JSON.
    putJournal("");
    std::filesystem::resize_file(journal, 33'554'433);
    EXPECT_THAT(failureOf([&] { opened(); }), Optional(Failure::tooLarge));
}

TEST_F(TextSyncStoreTest, aStateOfExactly32MiBIsSavedAndOneByteMoreIsNot)
{
    auto store = opened();
    std::vector<TextSyncRevision> revisions;
    for (unsigned number = 1; number <= 65; ++number)
        revisions.push_back(revisionOfSize(idNumber(number), 511'000));
    store.mergeRemote(SharedArray(revisions));
    constexpr std::size_t trial = 300'000;
    auto withTrial = TextSyncState{ store.snapshot(), {} };
    withTrial.journal.merge({ revisionOfSize(idNumber(66), trial) });
    const auto room = TextSyncState::mostBytes - textOf(withTrial).size();

    expectRefused(store, Failure::tooLarge,
        [&] { store.mergeRemote({ revisionOfSize(idNumber(66), trial + room + 1) }); });
    store.mergeRemote({ revisionOfSize(idNumber(66), trial + room) });
    EXPECT_EQ(std::filesystem::file_size(journal), 33'554'432u);
    expectRefused(store, Failure::tooLarge, [&] { store.remove(projectID()); });
    store.acknowledge({});
    EXPECT_EQ(store.snapshot().size(), 66u);
}

TEST_F(TextSyncStoreTest, whatStandsInTheFilesPlaceIsNeitherReadNorReplaced)
{
    std::filesystem::create_directories(journal);
    EXPECT_THROW(opened(), std::system_error);
    std::filesystem::remove(journal);
    putBytes(account / "elsewhere", textOf({}));
    std::filesystem::create_symlink(account / "elsewhere", journal);
    EXPECT_THROW(opened(), std::system_error);
    EXPECT_TRUE(std::filesystem::is_symlink(journal));
}
