#pragma once

#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/LibraryStore.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/HandClock.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace vesko {

// A root folder that doesn't exist yet, and a clock.
class LibraryFixture : public testing::Test {
protected:
    static std::string textOf(const Library& library)
    {
        return JsonWriter::write(library, JsonWriter::Form::pretty);
    }
    // The document as it comes back from the disk, dates without their fractions.
    static Library onDisk(const Library& library)
    {
        return JsonDocument(textOf(library)).as<Library>();
    }
    Library saved() const { return JsonDocument(bytesOf(root / "library.json")).as<Library>(); }

    void putText(const std::string& text) const
    {
        std::filesystem::create_directories(root);
        putBytes(root / "library.json", text);
    }
    void put(const Library& library) const { putText(textOf(library)); }
    // A library of one note with this one recording.
    template <class Change>
    void putNote(const Recording& recording, Change change) const
    {
        Note note;
        note.id = recording.noteID;
        note.createdAt = clock.now();
        note.updatedAt = clock.now();
        note.recordings = { recording };
        change(note);
        Library library;
        library.notes = { note };
        put(library);
    }
    void putNote(const Recording& recording) const
    {
        putNote(recording, [](Note&) { });
    }

    Recording recordingWith(RecordingStatus status, std::vector<AttemptStatus> attempts = {}) const
    {
        auto recording = Recording::make(Uuid::random(), Uuid::random(), clock.now());
        recording.status = status;
        for (const auto attemptStatus : attempts) {
            TranscriptionAttempt attempt;
            attempt.id = Uuid::random();
            attempt.startedAt = clock.now();
            attempt.status = attemptStatus;
            recording.attempts.push_back(attempt);
        }
        return recording;
    }

    // The operation fails with this error and leaves memory and disk as they were.
    template <class Operation>
    void expectRefused(LibraryStore& store, VeskoError::Kind kind, Operation operation) const
    {
        const Library memory = store.snapshot();
        const auto disk = contentOf(root);
        try {
            operation();
            ADD_FAILURE() << "not refused";
        } catch (const VeskoError& error) {
            EXPECT_EQ(error.errorDescription(), VeskoError(kind).errorDescription());
        }
        EXPECT_EQ(store.snapshot(), memory);
        EXPECT_EQ(contentOf(root), disk);
    }

    TemporaryFolder folder;
    const std::filesystem::path root = folder.path() / "data" / "Vesko";
    HandClock clock;
};

} // namespace vesko
