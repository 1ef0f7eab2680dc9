#include "tests/core/library/LibraryFixture.h"

#include <random>
#include <sys/wait.h>

namespace vesko {
namespace {

using Fault = FailingFileSystem::Fault;

class LibraryStoreFaultTest : public LibraryFixture {
protected:
    struct Operation {
        const char* name;
        std::function<void(LibraryStore&)> run;
    };

    // A note with two recordings: one waits for an attempt, the other has a finished one. A running
    // attempt is begun by the test itself, since opening would repair one that stands in the file.
    // And another note, a project and an entry.
    void given()
    {
        idle = recordingWith(RecordingStatus::recorded);
        done = recordingWith(RecordingStatus::ready, { AttemptStatus::ready });
        done.attempts[0].text = "text";
        Note note;
        note.id = idle.noteID;
        note.body = "text";
        note.createdAt = note.updatedAt = *Date::parse("2026-11-21T10:00:00Z");
        done.appliedBodyRevision = note.updatedAt;
        note.recordings = { idle, done };
        noteID = note.id;
        Library library;
        library.notes = { note };
        spare.id = Uuid::random();
        spare.createdAt = spare.updatedAt = note.createdAt;
        library.notes.append(spare);
        project = { Uuid::random(), "Work", note.createdAt };
        library.projects = { project };
        entry = { Uuid::random(), "a", "b", true, DictionaryEntry::Source::manual, note.createdAt };
        library.dictionary = { entry };
        std::filesystem::remove_all(root);
        put(library);
    }

    std::vector<Operation> operations()
    {
        const TranscriptResult result{ "raw", "better", 1.0, "gen", std::nullopt };
        return {
            { "createNote",
                [](LibraryStore& store) { store.createNote(NoteKind::text, std::nullopt); } },
            { "beginRecording", [&](LibraryStore& store) { store.beginRecording(noteID); } },
            { "finishRecording", [&](LibraryStore& store) { store.finishRecording(idle.id, 2); } },
            { "failRecording", [&](LibraryStore& store) { store.failRecording(idle.id, "x"); } },
            { "beginAttempt",
                [&](LibraryStore& store) { store.beginAttempt(idle.id, "", "", std::nullopt); } },
            { "completeAttempt",
                [this, result](
                    LibraryStore& store) { store.completeAttempt(done.id, running, result); } },
            { "updateCleanup",
                [this, result](LibraryStore& store) {
                    store.updateCleanup(done.id, done.attempts[0].id, result);
                } },
            { "failAttempt",
                [&](LibraryStore& store) {
                    store.failAttempt(done.id, done.attempts[0].id, "x");
                } },
            { "editNote",
                [&](LibraryStore& store) { store.editNote(noteID, "x", "y", std::nullopt); } },
            { "assignNote",
                [&](LibraryStore& store) { store.assignNotes({ { noteID, project.id } }); } },
            { "trashNote", [&](LibraryStore& store) { store.trashNotes({ spare.id }); } },
            { "restoreNote", [&](LibraryStore& store) { store.restoreNotes({ spare.id }); } },
            { "createProject", [](LibraryStore& store) { store.createProject("x"); } },
            { "renameProject", [&](LibraryStore& store) { store.renameProject(project.id, "y"); } },
            { "saveDictionaryEntry",
                [&](LibraryStore& store) {
                    auto edited = entry;
                    edited.replacement = "c";
                    store.saveDictionaryEntry(edited);
                } },
            { "removeDictionaryEntry",
                [&](LibraryStore& store) { store.removeDictionaryEntry(entry.id); } },
            { "learnCorrections",
                [](LibraryStore& store) { store.learnCorrections({ { "x", "y", true } }); } },
        };
    }

    Recording idle, done;
    Uuid noteID, running;
    Note spare;
    Project project;
    DictionaryEntry entry;
};

TEST_F(LibraryStoreFaultTest, MemoryAndDiskAgreeWhicheverCallOfASaveFails)
{
    for (const auto& operation : operations())
        for (const int number : { ENOSPC, EIO, EACCES })
            for (int at = 0;; ++at) {
                SCOPED_TRACE(std::string(operation.name) + ' ' + std::to_string(at));
                given();
                FailingFileSystem files;
                LibraryStore store(root, clock, files);
                running = store.beginAttempt(done.id, "", "", std::nullopt).id;
                const Library before = store.snapshot();
                files.fault = Fault::error;
                files.number = number;
                files.at = at;
                files.calls = 0;
                bool told = false;
                try {
                    operation.run(store);
                } catch (const VeskoError& error) {
                    told = true;
                    EXPECT_EQ(error.kind(), VeskoError::storage);
                }
                if (told)
                    EXPECT_EQ(store.snapshot(), before);
                else if (operation.name != std::string("restoreNote"))
                    EXPECT_NE(store.snapshot(), before);
                EXPECT_EQ(saved(), onDisk(store.snapshot()));
                if (files.calls <= at)
                    break; // the operation was over before the fault's turn came
                // And the store goes on as if nothing had been.
                files.fault = Fault::none;
                if (told)
                    EXPECT_NO_THROW(operation.run(store));
                EXPECT_EQ(saved(), onDisk(store.snapshot()));
            }
}

// Whichever call of a deletion fails, it is told, and one of three states follows: the note stands,
// perhaps without its audio; or it is gone and at most the backup has it; or it is gone altogether.
TEST_F(LibraryStoreFaultTest, ADeletionThatFailsLeavesTheNoteOrOnlyItsBackup)
{
    const std::string secret = "a secret";
    const auto has
        = [&](const char* file) { return bytesOf(root / file).find(secret) != std::string::npos; };
    int keptByTheSystemsError = 0, keptByTheSave = 0, gone = 0;
    for (const int number : { ENOSPC, EIO, EACCES })
        for (int at = 0;; ++at) {
            SCOPED_TRACE(at);
            given();
            FailingFileSystem files;
            LibraryStore store(root, clock, files);
            for (const auto& recording : { idle, done })
                putBytes(store.audioURL(recording), "sound");
            store.editNote(noteID, secret, "", std::nullopt);
            store.trashNotes({ noteID });
            const Library before = store.snapshot();
            files.fault = Fault::error;
            files.number = number;
            files.at = at;
            files.calls = 0;
            bool storage = false, system = false;
            try {
                store.deletePermanently({ noteID });
            } catch (const VeskoError& error) {
                storage = true;
                EXPECT_EQ(error.kind(), VeskoError::storage);
            } catch (const std::system_error& error) {
                system = true;
                EXPECT_EQ(error.code().value(), number);
            }
            files.fault = Fault::none;
            const bool noteStands = store.snapshot() == before;
            EXPECT_EQ(saved(), onDisk(store.snapshot()));
            EXPECT_EQ(has("library.json"), noteStands);
            keptByTheSystemsError += system;
            keptByTheSave += storage && noteStands;
            gone += storage && !noteStands;
            if (system) {
                EXPECT_TRUE(noteStands);
            }
            if (!noteStands) {
                EXPECT_EQ(store.snapshot().notes.size(), 1U);
                EXPECT_FALSE(exists(store.audioURL(idle)) || exists(store.audioURL(done)));
            }
            if (noteStands) {
                // The deletion can be asked for again.
                EXPECT_NO_THROW(store.deletePermanently({ noteID }));
            } else if (storage) {
                // The next change takes what the backup may still hold.
                EXPECT_NO_THROW(store.createProject("x"));
            }
            for (const auto& [name, bytes] : contentOf(root))
                EXPECT_EQ(bytes.find(secret), std::string::npos) << name;
            if (files.calls <= at)
                break;
        }
    EXPECT_GT(keptByTheSystemsError, 0);
    EXPECT_GT(keptByTheSave, 0);
    EXPECT_GT(gone, 0);
}

TEST_F(LibraryStoreFaultTest, AShortWriteIsCarriedOn)
{
    given();
    FailingFileSystem files;
    LibraryStore store(root, clock, files);
    files.fault = Fault::shortWrite;
    for (files.at = 0;; ++files.at) {
        files.calls = 0;
        store.finishRecording(idle.id, files.at);
        EXPECT_EQ(saved(), onDisk(store.snapshot()));
        if (files.calls <= files.at)
            break;
    }
}

TEST_F(LibraryStoreFaultTest, OpeningFailsCleanlyWhicheverCallFails)
{
    for (const bool needsRepair : { false, true })
        for (int at = 0;; ++at) {
            SCOPED_TRACE(at);
            std::filesystem::remove_all(root);
            putNote(recordingWith(
                needsRepair ? RecordingStatus::recording : RecordingStatus::recorded));
            const auto before = bytesOf(root / "library.json");
            FailingFileSystem files;
            files.fault = Fault::error;
            files.number = EIO;
            files.at = at;
            bool told = false;
            try {
                const LibraryStore store(root, clock, files);
                EXPECT_EQ(saved(), onDisk(store.snapshot()));
            } catch (const VeskoError& error) {
                told = true;
                EXPECT_TRUE(error == VeskoError(VeskoError::corruptLibrary)
                    || (needsRepair && error == VeskoError(VeskoError::storage)));
            }
            if (told || !needsRepair) {
                EXPECT_EQ(bytesOf(root / "library.json"), before);
            }
            EXPECT_NO_THROW(LibraryStore(root, clock));
            if (files.calls <= at)
                break;
        }
}

TEST_F(LibraryStoreFaultTest, ARootThatCannotBeMadeIsTheSystemsError)
{
    FailingFileSystem files;
    files.fault = Fault::error;
    files.number = EACCES;
    try {
        const LibraryStore store(root, clock, files);
        ADD_FAILURE();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().value(), EACCES);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

// A child saves one change after the other and reports each that went well; it is killed at some
// moment. Whatever it reported must be there, and at most the change that it was about.
TEST_F(LibraryStoreFaultTest, NothingThatWasReportedSavedIsLostInTwoThousandKills)
{
    constexpr int kills = 2000;
    const auto recording = recordingWith(RecordingStatus::recorded);
    putNote(recording);
    std::mt19937 random(20261121);
    int last = 0;
    int betweenReportAndKill = 0;
    FailingFileSystem files;
    files.syncs = false;
    for (int round = 0; round < kills; ++round) {
        int reports[2];
        ASSERT_EQ(pipe(reports), 0);
        const pid_t child = fork();
        if (child == 0) {
            close(reports[0]);
            LibraryStore store(root, clock, files);
            for (int next = last + 1;; ++next) {
                store.finishRecording(recording.id, next);
                if (write(reports[1], &next, sizeof next) != sizeof next)
                    _exit(1);
            }
        }
        close(reports[1]);
        // The first report tells that the child is under way. Then it is left alone for a while of
        // anything from nothing to several saves.
        int reported = last;
        ASSERT_EQ(::read(reports[0], &reported, sizeof reported), sizeof reported);
        const auto idleFor = random() % 400'000;
        for (volatile unsigned spin = 0; spin < idleFor;)
            spin = spin + 1;
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        while (::read(reports[0], &reported, sizeof reported) == sizeof reported)
            ;
        close(reports[0]);

        const LibraryStore store(root, clock);
        const auto found = static_cast<int>(store.snapshot().notes[0].recordings[0].duration);
        ASSERT_GE(found, reported) << "lost in round " << round;
        ASSERT_LE(found, reported + 1);
        betweenReportAndKill += found - reported;
        last = found;
    }
    EXPECT_GT(last, kills);
    RecordProperty("killedBetweenSavingAndReporting", betweenReportAndKill);
}

} // namespace
} // namespace vesko
