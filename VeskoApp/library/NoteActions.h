#pragma once

#include "VeskoApp/insertion/TextCopy.h"
#include "VeskoApp/library/NoteEdits.h"
#include "VeskoApp/library/NoteSelection.h"

#include <QObject>

#include <filesystem>

namespace vesko {

// What the user does with notes and projects as a whole. Nothing is waited for: a failure goes to
// the error line, and what changed is heard of from the library. Main thread.
class NoteActions : public QObject {
    Q_OBJECT

public:
    NoteActions(EventClock& clock, LibrarySession& library, NoteSelection& selection,
        NoteEdits& edits, TextCopy& clipboard, Analytics& analytics, StatusLine& status);

    // A new text note in the selected project, which is then shown and selected.
    Q_INVOKABLE void newNote();
    // What follows happens to all of the notes or to none.
    void assign(LibraryStore::Places places);
    void trash(std::set<Uuid> ids);
    void restore(std::set<Uuid> ids);
    // From the Trash into nothing.
    void remove(std::set<Uuid> ids);
    void createProject(const std::string& name);
    void renameProject(const Uuid& id, const std::string& name);

    // Title and text as the user sees them, what is not saved yet included; none if there is none.
    std::optional<std::string> clipboardText(const Uuid& id) const;
    void copy(const Uuid& id);
    // The note that was copied a moment ago.
    const std::optional<Uuid>& copiedNoteID() const { return m_copiedNoteID; }
    // Writes the note as it is saved to a Markdown file.
    void exportTo(const Uuid& id, const std::filesystem::path& file);
    // Writes each as it is saved to a Markdown file of its name in that folder, where it replaces
    // nothing.
    void exportInto(std::set<Uuid> ids, std::filesystem::path folder);

Q_SIGNALS:
    void copiedNoteChanged();
    // Of newNote(): from now on what is typed is the new note's; and it is selected, or could not
    // be made.
    void newNoteBegun();
    void newNoteEnded(bool made);

private:
    Task<> create();
    Task<> removed(std::set<Uuid> ids);
    Task<> showCopied(Uuid id);
    Task<> writeExport(std::string markdown, std::filesystem::path file);
    Task<> writeExports(std::set<Uuid> ids, std::filesystem::path folder);

    EventClock& m_clock;
    LibrarySession& m_library;
    NoteSelection& m_selection;
    NoteEdits& m_edits;
    TextCopy& m_clipboard;
    Analytics& m_analytics;
    StatusLine& m_status;
    std::optional<Uuid> m_copiedNoteID;

    // Last, so that tasks end before what they use.
    Worker m_writing;
    TaskScope m_tasks;
};

} // namespace vesko
