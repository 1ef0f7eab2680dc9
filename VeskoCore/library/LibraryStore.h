#pragma once

#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/Clock.h"
#include "VeskoCore/base/FileLock.h"
#include "VeskoCore/base/FileSystem.h"
#include "VeskoCore/base/JsonCache.h"
#include "VeskoCore/library/DictionarySuggestion.h"
#include "VeskoCore/library/Library.h"
#include "VeskoCore/library/TranscriptResult.h"
#include "VeskoCore/library/VeskoError.h"

#include <exception>
#include <filesystem>
#include <map>
#include <set>

namespace vesko {

// Owns the library on disk: one root folder, one lock, "library.json" with its backup, and the
// folder of audio files. Operations block and throw VeskoError; they are to be called one at a
// time, on whichever thread the caller likes. Every change is made on a copy, saved, and only then
// becomes the store's document: when a save fails, memory and disk stay as they were.
class LibraryStore {
public:
    // Opens or creates the library at an absolute path and repairs what a crash left open. Holds
    // the lock until destroyed. Throws std::system_error when the root can't be made, libraryBusy
    // when another store has it, unsupportedSchema, corruptLibrary, libraryTooLarge or storage as
    // the case may be; the files then stay as they were. Clock and file system must outlive the
    // store.
    LibraryStore(
        std::filesystem::path root, const Clock& clock, FileSystem& files = FileSystem::posix());

    // The current document.
    const Library& snapshot() const { return m_library; }

    // A new empty note at the end. notFound for an unknown project.
    Note createNote(NoteKind kind, std::optional<Uuid> projectID);
    // Takes title and body from an editor that started with `baseBody`, as Note::applyingDraft
    // does.
    void editNote(const Uuid& id, const std::string& title, const std::string& body,
        const std::optional<std::string>& baseBody);
    // What follows is done with all of the notes, in one save, or with none.
    // Moves each to the project that stands beside it, or out of all. notFound for an unknown one.
    using Places = std::map<Uuid, std::optional<Uuid>>;
    void assignNotes(const Places& places);
    // Into the Trash and out of it. libraryBusy while one of them is captured or transcribed.
    void trashNotes(const std::set<Uuid>& ids);
    void restoreNotes(const std::set<Uuid>& ids);

    // Removes notes in the Trash with their audio, from the document and from its backup, in one
    // save; notFound, and nothing removed, if one is elsewhere. First goes the audio: a note for
    // which that fails stays, without the files that are gone by then, and the first such failure,
    // unsafePath or the system's std::system_error, is thrown behind the rest. When only the backup
    // fails, with storage, the notes are gone and the backup may still hold them until the next
    // change.
    void deletePermanently(const std::set<Uuid>& ids);
    // The same with all that was moved to the Trash before that moment. The notes that are gone.
    std::vector<Uuid> emptyTrash(Date before);

    // Marks each recording of before that moment as one without audio, if its text is there. How
    // many. The audio itself goes with clearRemovedAudio, which may be called at any time after:
    // so no record promises audio that is gone, and none that was to go is forgotten.
    std::size_t giveUpAudio(Date before);
    // Removes the audio of the recordings that have none by their mark. Throws the first failure of
    // the system behind the rest.
    void clearRemovedAudio();

    // Names are trimmed and have 1 to 80 characters, else invalidProject. duplicateProject when
    // another project has the name, ignoring case.
    Project createProject(const std::string& name);
    void renameProject(const Uuid& id, const std::string& name);

    // Adds the entry, or replaces the one with its id. The terms are trimmed; invalidDictionary
    // unless they differ, have 1 to 80 characters in one line, and there is room for a new entry.
    // duplicateDictionary when another entry is for this original, ignoring case.
    void saveDictionaryEntry(const DictionaryEntry& entry);
    // An unknown entry is fine.
    void removeDictionaryEntry(const Uuid& id);
    // Adds an entry for each suggestion whose original has none yet, ignoring case, while there is
    // room: enabled if it is automatic, else for the user to decide. How many were added.
    std::size_t learnCorrections(const std::vector<DictionarySuggestion>& suggestions);

    // A new recording in a note that is not in the Trash, on disk before the first sample.
    Recording beginRecording(const Uuid& noteID);
    // Where the recording's audio belongs. unsafePath when the record names any other file than
    // its own, or when a symbolic link stands there; an absent file is fine.
    std::filesystem::path audioURL(const Recording& recording) const;
    // The audio is whole; seconds.
    void finishRecording(const Uuid& id, double duration);
    void failRecording(const Uuid& id, const std::string& message);

    // A new running attempt. libraryBusy when the note is in the Trash or an attempt is running,
    // notFound when the audio was removed.
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

    // Takes from another library what isn't here: its notes, with their recordings, its projects
    // unless one of the name is here, and its terms unless there is an entry for the original. What
    // is here stays as it is. One save.
    void merge(const Library& other);

private:
    // Where a recording stands in the document.
    struct Location {
        std::size_t note;
        std::size_t recording;
    };

    void open();
    void settleAudio();
    // These throw notFound.
    Location location(const Uuid& recordingID) const;
    std::size_t noteIndex(const Uuid& id) const;
    void requireProject(const std::optional<Uuid>& id) const;

    // Those of the identifiers; notFound unless there is a note for each. Of several notes of one
    // identifier it is the first.
    std::set<const Note*> notesOf(const std::set<Uuid>& ids) const;
    void setTrash(const std::set<Uuid>& ids, std::optional<Date> date);
    // Those that are gone, and the first failure.
    std::pair<std::vector<Uuid>, std::exception_ptr> remove(const std::set<Uuid>& ids);
    // The system's error, unless there is no such file.
    void removeAudio(const std::filesystem::path& path);
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
