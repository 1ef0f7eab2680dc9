#include "tests/core/library/LibraryFixture.h"

namespace vesko {
namespace {

using namespace std::chrono_literals;

class LibraryStoreNotesTest : public LibraryFixture {
protected:
    // Two notes; the first has a recording of this status.
    void given(RecordingStatus status = RecordingStatus::recorded)
    {
        recording = recordingWith(RecordingStatus::recorded);
        Note note, other;
        note.id = id = recording.noteID;
        note.title = "title";
        note.body = "body";
        note.createdAt = note.updatedAt = clock.now();
        note.recordings = { recording };
        other = note;
        other.id = Uuid::random();
        other.recordings = {};
        Library library;
        library.projects = { { Uuid::random(), "Work", clock.now() } };
        library.notes = { other, note };
        store.reset();
        put(library);
        store.emplace(root, clock);
        if (status == RecordingStatus::transcribing)
            store->beginAttempt(recording.id, "", "", std::nullopt);
        if (status == RecordingStatus::recording)
            recording = store->beginRecording(id);
        clock.turn(1min);
    }
    const Note& note() const { return store->snapshot().notes[1]; }
    const Note& other() const { return store->snapshot().notes[0]; }
    std::filesystem::path audio() const { return root / "recordings" / recording.fileName; }

    std::optional<LibraryStore> store;
    Recording recording;
    Uuid id;
};

TEST_F(LibraryStoreNotesTest, EditNoteTakesTheDraftAndTheTime)
{
    given();
    auto expected = note();
    const auto untouched = other();
    store->editNote(id, "new title", "new body", "body");
    expected.title = "new title";
    expected.body = "new body";
    expected.updatedAt = clock.now();
    EXPECT_EQ(note(), expected);
    EXPECT_EQ(other(), untouched);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreNotesTest, EditNoteJoinsTheDraftWithATranscript)
{
    given();
    const auto attempt = store->beginAttempt(recording.id, "", "", std::nullopt);
    store->completeAttempt(recording.id, attempt.id, { "raw", "spoken", {}, {}, {} });
    clock.turn(1min);
    store->editNote(id, "title", "body, written on", "body");
    EXPECT_EQ(note().body, "body, written on\n\nspoken");
    // From here on the editor's text is the newest.
    store->editNote(id, "title", "short", "body");
    EXPECT_EQ(note().body, "short");
}

TEST_F(LibraryStoreNotesTest, EditNoteMovesTheTimeThoughNothingDiffers)
{
    given();
    store->editNote(id, "title", "body", std::nullopt);
    EXPECT_EQ(note().updatedAt, clock.now());
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreNotesTest, EditNoteAndAssignNoteReachIntoTheTrash)
{
    given();
    store->trashNotes({ id });
    store->editNote(id, "edited", "", std::nullopt);
    store->assignNotes({ { id, store->snapshot().projects[0].id } });
    EXPECT_EQ(note().title, "edited");
    EXPECT_EQ(note().projectID, store->snapshot().projects[0].id);
    EXPECT_TRUE(note().deletedAt);
}

TEST_F(LibraryStoreNotesTest, AssignNoteSetsAndClearsTheProjectAndTakesTheTime)
{
    given();
    const auto project = store->snapshot().projects[0].id;
    for (const auto& to : { std::optional(project), std::optional<Uuid>() }) {
        clock.turn(1min);
        auto expected = note();
        store->assignNotes({ { id, to } });
        expected.projectID = to;
        expected.updatedAt = clock.now();
        EXPECT_EQ(note(), expected);
        EXPECT_EQ(saved(), onDisk(store->snapshot()));
    }
}

TEST_F(LibraryStoreNotesTest, AssignNoteRefusesAnUnknownProjectAndAnUnknownNote)
{
    given();
    const auto project = store->snapshot().projects[0].id;
    expectRefused(
        *store, VeskoError::notFound, [&] { store->assignNotes({ { id, Uuid::random() } }); });
    expectRefused(
        *store, VeskoError::notFound, [&] { store->assignNotes({ { Uuid::random(), project } }); });
}

TEST_F(LibraryStoreNotesTest, TheTrashLeavesEverythingElseAsItWas)
{
    given();
    const auto before = note();
    store->trashNotes({ id });
    auto trashed = before;
    trashed.deletedAt = clock.now();
    EXPECT_EQ(note(), trashed);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
    clock.turn(1min);
    store->restoreNotes({ id });
    EXPECT_EQ(note(), before);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreNotesTest, RestoringWhatIsNotInTheTrashClearsNothing)
{
    given();
    const auto before = store->snapshot();
    store->restoreNotes({ id });
    EXPECT_EQ(store->snapshot(), before);
}

TEST_F(LibraryStoreNotesTest, TheTrashIsClosedToANoteInUse)
{
    for (const auto status : { RecordingStatus::recording, RecordingStatus::transcribing }) {
        given(status);
        expectRefused(*store, VeskoError::libraryBusy, [&] { store->trashNotes({ id }); });
        expectRefused(*store, VeskoError::libraryBusy, [&] { store->restoreNotes({ id }); });
    }
}

TEST_F(LibraryStoreNotesTest, AnUnknownNoteIsNotFound)
{
    given();
    const auto unknown = Uuid::random();
    expectRefused(
        *store, VeskoError::notFound, [&] { store->editNote(unknown, "", "", std::nullopt); });
    expectRefused(*store, VeskoError::notFound, [&] { store->trashNotes({ unknown }); });
    expectRefused(*store, VeskoError::notFound, [&] { store->restoreNotes({ unknown }); });
    expectRefused(*store, VeskoError::notFound, [&] { store->deletePermanently({ unknown }); });
}

TEST_F(LibraryStoreNotesTest, SeveralNotesGoTogetherInOneSave)
{
    given();
    const auto project = store->snapshot().projects[0].id;
    const auto other = store->createNote(NoteKind::text, std::nullopt).id;
    const auto stays = store->createNote(NoteKind::text, std::nullopt).id;
    const auto at = [&](const Uuid& which) {
        return *std::ranges::find(store->snapshot().notes, which, &Note::id);
    };
    const auto document = [&] { return bytesOf(root / "library.json"); };
    const auto backup = [&] { return bytesOf(root / "library.backup.json"); };

    auto before = document();
    store->assignNotes({ { id, std::nullopt }, { other, project } });
    EXPECT_EQ(at(id).projectID, std::nullopt);
    EXPECT_EQ(at(other).projectID, project);
    EXPECT_EQ(backup(), before);
    before = document();
    store->trashNotes({ id, other });
    EXPECT_TRUE(at(id).deletedAt && at(other).deletedAt && !at(stays).deletedAt);
    EXPECT_EQ(backup(), before);
    before = document();
    store->restoreNotes({ id, other });
    EXPECT_TRUE(!at(id).deletedAt && !at(other).deletedAt);
    EXPECT_EQ(backup(), before);
    store->trashNotes({ id, other });
    store->deletePermanently({ id, other });
    ASSERT_EQ(store->snapshot().notes.size(), 2U);
    EXPECT_EQ(store->snapshot().notes[1].id, stays);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreNotesTest, WhatOneOfSeveralNotesForbidsHappensToNone)
{
    given(RecordingStatus::recording);
    const auto other = store->createNote(NoteKind::text, std::nullopt).id;
    expectRefused(*store, VeskoError::libraryBusy, [&] { store->trashNotes({ id, other }); });
    const auto unknown = Uuid::random();
    const auto project = store->snapshot().projects[0].id;
    expectRefused(*store, VeskoError::notFound, [&] { store->trashNotes({ other, unknown }); });
    expectRefused(*store, VeskoError::notFound,
        [&] { store->assignNotes({ { other, project }, { unknown, project } }); });
    store->trashNotes({ other });
    expectRefused(*store, VeskoError::notFound, [&] { store->deletePermanently({ other, id }); });
}

TEST_F(LibraryStoreNotesTest, OnlyTheTrashIsDeletedFrom)
{
    given();
    putBytes(audio(), "sound");
    expectRefused(*store, VeskoError::notFound, [&] { store->deletePermanently({ id }); });
}

TEST_F(LibraryStoreNotesTest, DeletePermanentlyLeavesNeitherTextNorAudio)
{
    given();
    putBytes(audio(), "sound");
    const auto kept = root / "recordings" / "another.m4a";
    putBytes(kept, "sound");
    store->editNote(id, "title", "a secret", std::nullopt);
    store->trashNotes({ id });
    const auto untouched = other();

    store->deletePermanently({ id });

    ASSERT_EQ(store->snapshot().notes.size(), 1U);
    EXPECT_EQ(other(), untouched);
    EXPECT_FALSE(exists(audio()));
    EXPECT_TRUE(exists(kept));
    for (const auto& [name, bytes] : contentOf(root))
        EXPECT_EQ(bytes.find("secret"), std::string::npos) << name;
    EXPECT_EQ(bytesOf(root / "library.json"), textOf(store->snapshot()));
    EXPECT_EQ(bytesOf(root / "library.backup.json"), textOf(store->snapshot()));
    EXPECT_EQ(permissionsOf(root / "library.backup.json"), 0600);
}

TEST_F(LibraryStoreNotesTest, TheBackupAfterADeletionIsAFileOfItsOwn)
{
    given();
    store->trashNotes({ id });
    store->deletePermanently({ id });
    const auto text = bytesOf(root / "library.json");
    putBytes(root / "library.json", "damaged");
    EXPECT_EQ(bytesOf(root / "library.backup.json"), text);
}

TEST_F(LibraryStoreNotesTest, TheNextChangeAfterADeletionKeepsItsBackup)
{
    given();
    store->trashNotes({ id });
    store->deletePermanently({ id });
    const auto text = bytesOf(root / "library.json");
    store->createNote(NoteKind::text, std::nullopt);
    EXPECT_EQ(bytesOf(root / "library.backup.json"), text);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreNotesTest, DeletePermanentlyTakesEveryNoteOfThatIdentifier)
{
    Note note;
    note.id = Uuid::random();
    note.createdAt = note.updatedAt = clock.now();
    note.deletedAt = clock.now();
    Library library;
    library.notes = { note, note };
    put(library);
    LibraryStore twins(root, clock);
    twins.deletePermanently({ note.id });
    EXPECT_TRUE(twins.snapshot().notes.empty());
}

TEST_F(LibraryStoreNotesTest, DeletePermanentlyDoesNotAskWhetherARecordingIsInUse)
{
    auto active = recordingWith(RecordingStatus::recorded);
    putNote(active, [&](Note& note) { note.deletedAt = clock.now(); });
    store.emplace(root, clock);
    store->failRecording(active.id, "");
    EXPECT_NO_THROW(store->deletePermanently({ active.noteID }));
}

// Two recordings in a note in the Trash, of which the second can't be removed.
class LibraryStoreDeletionTest : public LibraryFixture {
protected:
    void given(const std::string& secondName)
    {
        first = recordingWith(RecordingStatus::recorded);
        second = recordingWith(RecordingStatus::recorded);
        if (!secondName.empty())
            second.fileName = secondName;
        putNote(first, [&](Note& note) {
            note.deletedAt = clock.now();
            note.recordings.push_back(second);
        });
        store.emplace(root, clock);
        putBytes(audio(first), "sound");
    }
    void expectOnlyTheFirstFileGone(const Library& before) const
    {
        EXPECT_FALSE(exists(audio(first)));
        EXPECT_EQ(store->snapshot(), before);
        EXPECT_EQ(saved(), onDisk(before));
    }
    std::filesystem::path audio(const Recording& recording) const
    {
        return root / "recordings" / recording.fileName;
    }

    std::optional<LibraryStore> store;
    Recording first, second;
};

TEST_F(LibraryStoreDeletionTest, StopsAtARecordThatNamesAnotherFile)
{
    given("../library.json");
    const auto before = store->snapshot();
    try {
        store->deletePermanently({ first.noteID });
        ADD_FAILURE();
    } catch (const VeskoError& error) {
        EXPECT_EQ(error.kind(), VeskoError::unsafePath);
    }
    expectOnlyTheFirstFileGone(before);
}

TEST_F(LibraryStoreDeletionTest, StopsAtALinkAndLeavesWhatItPointsTo)
{
    given("");
    const auto target = folder.path() / "target";
    putBytes(target, "precious");
    std::filesystem::create_symlink(target, audio(second));
    const auto before = store->snapshot();
    EXPECT_THROW(store->deletePermanently({ first.noteID }), VeskoError);
    expectOnlyTheFirstFileGone(before);
    EXPECT_EQ(bytesOf(target), "precious");
}

TEST_F(LibraryStoreDeletionTest, StopsWithTheSystemsErrorAtWhatCannotBeRemoved)
{
    given("");
    std::filesystem::create_directories(audio(second) / "full");
    const auto before = store->snapshot();
    try {
        store->deletePermanently({ first.noteID });
        ADD_FAILURE();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::is_a_directory);
    }
    expectOnlyTheFirstFileGone(before);
    // And again, once nothing is in the way.
    std::filesystem::remove_all(audio(second));
    EXPECT_NO_THROW(store->deletePermanently({ first.noteID }));
    EXPECT_TRUE(store->snapshot().notes.empty());
}

} // namespace
} // namespace vesko
