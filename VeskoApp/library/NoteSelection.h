#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/library/LibrarySession.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace vesko {

// What the library window shows: of the notes of a project or of all, or of the Trash, those that
// contain the query; and which of them is selected. A search runs beside the main thread, and until
// it is done the notes stay as they were. Main thread.
class NoteSelection : public QObject {
    Q_OBJECT

public:
    explicit NoteSelection(LibrarySession& library);

    const SharedArray<Note>& visibleNotes() const;
    // The selected note, if it is visible.
    const Note* selectedNote() const;
    const std::optional<Uuid>& selectedNoteID() const { return m_selectedNoteID; }
    void setSelectedNoteID(std::optional<Uuid> id);
    const std::optional<Uuid>& selectedProjectID() const { return m_selectedProjectID; }
    void setSelectedProjectID(std::optional<Uuid> id);
    bool showingTrash() const { return m_showingTrash; }
    void setShowingTrash(bool showing);
    const std::string& query() const { return m_query; }
    void setQuery(std::string query);
    // Selects a note that has just been made, and shows it whatever was shown.
    void reveal(const Uuid& id);

Q_SIGNALS:
    void visibleNotesChanged();
    void selectionChanged(); // of the note, the project or the Trash
    void queryChanged();

private:
    void refresh();
    Task<> search();

    const LibrarySession& m_library;
    std::optional<Uuid> m_selectedNoteID;
    std::optional<Uuid> m_selectedProjectID;
    bool m_showingTrash = false;
    std::string m_query;
    mutable std::optional<SharedArray<Note>> m_visibleNotes; // none until asked for
    std::shared_ptr<std::atomic<unsigned>> m_searches; // how many have been asked for

    // Last, so that tasks end before what they use.
    Worker m_searching;
    TaskScope m_tasks;
};

} // namespace vesko
