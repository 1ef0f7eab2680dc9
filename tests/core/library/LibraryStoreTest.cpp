#include "VeskoCore/library/LibraryStore.h"
#include "tests/core/library/LibraryFixture.h"

namespace vesko {
namespace {

class LibraryStoreTest : public LibraryFixture { };

TEST_F(LibraryStoreTest, CreateNoteAppendsAnEmptyNote)
{
    LibraryStore store(root, clock);
    store.createNote(NoteKind::text, std::nullopt);
    const auto note = store.createNote(NoteKind::dictation, std::nullopt);

    Note expected;
    expected.id = note.id;
    expected.kind = NoteKind::dictation;
    expected.createdAt = clock.now();
    expected.updatedAt = clock.now();
    EXPECT_EQ(note, expected);
    ASSERT_EQ(store.snapshot().notes.size(), 2U);
    EXPECT_EQ(store.snapshot().notes.back(), note);
    EXPECT_NE(note.id, store.snapshot().notes[0].id);
    EXPECT_EQ(saved(), onDisk(store.snapshot()));
}

TEST_F(LibraryStoreTest, CreateNotePutsItIntoAProjectThatExists)
{
    const Project project{ Uuid::random(), "Work", clock.now() };
    Library library;
    library.projects = { project };
    put(library);
    LibraryStore store(root, clock);
    EXPECT_EQ(store.createNote(NoteKind::voice, project.id).projectID, project.id);
    expectRefused(
        store, VeskoError::notFound, [&] { store.createNote(NoteKind::voice, Uuid::random()); });
}

TEST_F(LibraryStoreTest, BeginRecordingStandsOnDiskBeforeTheFirstSample)
{
    LibraryStore store(root, clock);
    const auto note = store.createNote(NoteKind::voice, std::nullopt);
    clock.turn(std::chrono::minutes(1));
    const auto recording = store.beginRecording(note.id);

    EXPECT_EQ(recording, Recording::make(recording.id, note.id, clock.now()));
    const auto& changed = store.snapshot().notes[0];
    EXPECT_EQ(changed.recordings, std::vector{ recording });
    EXPECT_EQ(changed.updatedAt, clock.now());
    EXPECT_EQ(changed.createdAt, note.createdAt);
    EXPECT_EQ(saved(), onDisk(store.snapshot()));
    EXPECT_FALSE(std::filesystem::exists(store.audioURL(recording)));

    const auto second = store.beginRecording(note.id);
    EXPECT_EQ(store.snapshot().notes[0].recordings, (std::vector{ recording, second }));
}

TEST_F(LibraryStoreTest, BeginRecordingTakesNoUnknownNoteAndNoneInTheTrash)
{
    Note trashed;
    trashed.id = Uuid::random();
    trashed.deletedAt = clock.now();
    Library library;
    library.notes = { trashed };
    put(library);
    LibraryStore store(root, clock);
    expectRefused(store, VeskoError::notFound, [&] { store.beginRecording(trashed.id); });
    expectRefused(store, VeskoError::notFound, [&] { store.beginRecording(Uuid::random()); });
}

TEST_F(LibraryStoreTest, FinishAndFailRecordingLeaveTheNoteAlone)
{
    LibraryStore store(root, clock);
    const auto note = store.createNote(NoteKind::voice, std::nullopt);
    store.beginRecording(note.id);
    const auto recording = store.beginRecording(note.id);
    const auto updatedAt = store.snapshot().notes[0].updatedAt;
    clock.turn(std::chrono::minutes(1));

    store.finishRecording(recording.id, 12.25);
    auto expected = recording;
    expected.duration = 12.25;
    expected.status = RecordingStatus::recorded;
    EXPECT_EQ(store.snapshot().notes[0].recordings[1], expected);
    EXPECT_EQ(store.snapshot().notes[0].updatedAt, updatedAt);

    store.failRecording(recording.id, "No microphone.");
    expected.status = RecordingStatus::failed;
    expected.errorMessage = "No microphone.";
    EXPECT_EQ(store.snapshot().notes[0].recordings[1], expected);
    EXPECT_EQ(store.snapshot().notes[0].updatedAt, updatedAt);

    // Whatever became of it before, it can be finished.
    store.finishRecording(recording.id, 13);
    EXPECT_EQ(store.snapshot().notes[0].recordings[1].status, RecordingStatus::recorded);
    EXPECT_EQ(store.snapshot().notes[0].recordings[1].errorMessage, "No microphone.");
    EXPECT_EQ(saved(), onDisk(store.snapshot()));

    expectRefused(store, VeskoError::notFound, [&] { store.finishRecording(Uuid::random(), 1); });
    expectRefused(store, VeskoError::notFound, [&] { store.failRecording(Uuid::random(), "x"); });
}

TEST_F(LibraryStoreTest, ARecordingIsFoundInATrashedNoteToo)
{
    const auto recording = recordingWith(RecordingStatus::recorded);
    putNote(recording, [](Note& note) { note.deletedAt = note.createdAt; });
    LibraryStore store(root, clock);
    store.finishRecording(recording.id, 3);
    EXPECT_EQ(store.snapshot().notes[0].recordings[0].duration, 3);
}

TEST_F(LibraryStoreTest, AudioURLIsInTheRecordingsFolderUnderTheRecordingsOwnName)
{
    LibraryStore store(root, clock);
    const auto recording = Recording::make(Uuid::random(), Uuid::random(), clock.now());
    const auto expected = root / "recordings" / (recording.id.text() + ".m4a");
    EXPECT_EQ(store.audioURL(recording), expected);
    putBytes(expected, "audio");
    EXPECT_EQ(store.audioURL(recording), expected);
}

TEST_F(LibraryStoreTest, AudioURLRefusesEveryOtherName)
{
    LibraryStore store(root, clock);
    const auto good
        = Recording::make(*Uuid::parse("0123ABCD-4567-89EF-ABCD-EF0123456789"), {}, clock.now());
    for (const std::string& name : {
             std::string(".."),
             std::string(""),
             std::string("../library.json"),
             std::string("/etc/passwd"),
             Recording::fileNameFor(Uuid::random()),
             std::string("0123abcd-4567-89ef-abcd-ef0123456789.m4a"),
             "./" + good.fileName,
             good.fileName + " ",
             good.fileName + std::string(1, '\0'),
             good.id.text(),
             good.id.text() + ".M4A",
         }) {
        auto bad = good;
        bad.fileName = name;
        expectRefused(store, VeskoError::unsafePath, [&] { store.audioURL(bad); });
    }
}

TEST_F(LibraryStoreTest, AudioURLRefusesASymbolicLink)
{
    LibraryStore store(root, clock);
    const auto recording = Recording::make(Uuid::random(), Uuid::random(), clock.now());
    const auto path = root / "recordings" / recording.fileName;
    for (const auto* target : { "/etc/passwd", "nowhere" }) {
        std::filesystem::create_symlink(target, path);
        expectRefused(store, VeskoError::unsafePath, [&] { store.audioURL(recording); });
        std::filesystem::remove(path);
    }
}

TEST_F(LibraryStoreTest, AudioURLIsGivenWhenNobodyCanSayWhatStandsThere)
{
    FailingFileSystem files;
    LibraryStore store(root, clock, files);
    const auto recording = Recording::make(Uuid::random(), Uuid::random(), clock.now());
    files.fault = FailingFileSystem::Fault::error;
    files.number = EIO;
    files.at = files.calls;
    EXPECT_EQ(store.audioURL(recording), root / "recordings" / recording.fileName);
}

TEST_F(LibraryStoreTest, TheBackupIsTheContentBeforeTheLastChange)
{
    LibraryStore store(root, clock);
    store.createNote(NoteKind::text, std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(root / "library.backup.json"));
    const auto first = bytesOf(root / "library.json");

    store.createNote(NoteKind::text, std::nullopt);
    EXPECT_EQ(bytesOf(root / "library.backup.json"), first);
    const auto second = bytesOf(root / "library.json");

    store.createNote(NoteKind::text, std::nullopt);
    EXPECT_EQ(bytesOf(root / "library.backup.json"), second);
    EXPECT_EQ(permissionsOf(root / "library.json"), 0600);
    EXPECT_EQ(permissionsOf(root / "library.backup.json"), 0600);
    EXPECT_EQ(contentOf(root).size(), 4U) << "nothing else is left in the folder";
}

TEST_F(LibraryStoreTest, WhatCannotBeWrittenIsRefusedAndChangesNothing)
{
    LibraryStore store(root, clock);
    const auto note = store.createNote(NoteKind::voice, std::nullopt);
    const auto recording = store.beginRecording(note.id);
    expectRefused(store, VeskoError::storage, [&] { store.failRecording(recording.id, "\xff"); });
    expectRefused(store, VeskoError::storage,
        [&] { store.finishRecording(recording.id, std::numeric_limits<double>::infinity()); });
    store.finishRecording(recording.id, 1);
}

TEST_F(LibraryStoreTest, ASnapshotStaysAsItWas)
{
    LibraryStore store(root, clock);
    store.createNote(NoteKind::text, std::nullopt);
    const Library before = store.snapshot();
    store.createNote(NoteKind::text, std::nullopt);
    EXPECT_EQ(before.notes.size(), 1U);
    EXPECT_EQ(before.notes.shared(0), store.snapshot().notes.shared(0));
}

} // namespace
} // namespace vesko
