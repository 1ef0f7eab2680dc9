#pragma once

#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/Clock.h"
#include "VeskoCore/base/FileLock.h"
#include "VeskoCore/base/FileSystem.h"
#include "VeskoCore/base/JsonCache.h"
#include "VeskoCore/library/Library.h"
#include "VeskoCore/library/TranscriptResult.h"
#include "VeskoCore/library/VeskoError.h"

#include <filesystem>

namespace vesko {

// Owns the library on disk: one root folder, one lock, "library.json" with its backup, and the
// folder of audio files. Operations block and throw VeskoError; they are to be called one at a
// time, on whichever thread the caller likes. Every change is made on a copy, saved, and only then
// becomes the store's document: when a save fails, memory and disk stay as they were.
class LibraryStore {
public:
    // Opens or creates the library at an absolute path and repairs what a crash left open. Holds
    // the lock until destroyed. Throws std::system_error when the root can't be made, libraryBusy
    // when another store has it, unsupportedSchema, corruptLibrary or storage as the case may be;
    // the files then stay as they were. Clock and file system must outlive the store.
    LibraryStore(
        std::filesystem::path root, const Clock& clock, FileSystem& files = FileSystem::posix());

    // The current document.
    const Library& snapshot() const { return m_library; }

    // A new empty note at the end. notFound for an unknown project.
    Note createNote(NoteKind kind, std::optional<Uuid> projectID);

    // A new recording in a note that is not in the Trash, on disk before the first sample.
    Recording beginRecording(const Uuid& noteID);
    // Where the recording's audio belongs. unsafePath when the record names any other file than
    // its own, or when a symbolic link stands there; an absent file is fine.
    std::filesystem::path audioURL(const Recording& recording) const;
    // The audio is whole; seconds.
    void finishRecording(const Uuid& id, double duration);
    void failRecording(const Uuid& id, const std::string& message);

    // A new running attempt. libraryBusy when the note is in the Trash or an attempt is running.
    TranscriptionAttempt beginAttempt(const Uuid& recordingID, const std::string& provider,
        const std::string& model, const std::optional<std::string>& cleanupModel);
    // Stores the transcript and, for the recording's first one, appends it to the note.
    // emptyTranscript when either text is blank; notFound unless the attempt is running.
    void completeAttempt(
        const Uuid& recordingID, const Uuid& attemptID, const TranscriptResult& result);
    // Stores a better text, and replaces the old one at the end of the note if nothing has changed
    // the note since. notFound unless the attempt is ready and has a text.
    void updateCleanup(
        const Uuid& recordingID, const Uuid& attemptID, const TranscriptResult& result);
    void failAttempt(const Uuid& recordingID, const Uuid& attemptID, const std::string& message);

private:
    // Where a recording stands in the document.
    struct Location {
        std::size_t note;
        std::size_t recording;
    };

    void open();
    // Throws notFound.
    Location location(const Uuid& recordingID) const;
    // Saves a changed copy of the document and, only when that went well, makes it the document.
    void save(Library changed);
    // Saves the document with a note that `change` has worked on.
    template <class Change>
    void changeNote(std::size_t index, Change change)
    {
        Library changed = m_library;
        changed.notes.edit(index, change);
        save(std::move(changed));
    }

    std::filesystem::path m_root;
    const Clock& m_clock;
    FileSystem& m_files;
    FileLock m_lock;
    AtomicFile m_document;
    JsonCache m_texts; // for a large library, encoding takes as long as writing
    Library m_library;
};

} // namespace vesko
