#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/library/LibrarySession.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vesko {

// What the library window shows: of the notes of a project or of all, or of the Trash, those that
// contain the query; and which of them are selected. One of these is the current one, from which
// the keyboard goes on. A search runs beside the main thread, and until it is done the notes stay
// as they were. Main thread.
class NoteSelection : public QObject {
    Q_OBJECT

public:
    explicit NoteSelection(LibrarySession& library);

    const SharedArray<Note>& visibleNotes() const;
    // The selected note, if it is visible and the only one.
    const Note* selectedNote() const;
    // The current one.
    const std::optional<Uuid>& selectedNoteID() const { return m_selectedNoteID; }
    // Selects that one alone.
    void setSelectedNoteID(std::optional<Uuid> id);
    // Those that are visible, as they are shown.
    std::vector<const Note*> selectedNotes() const;
    // Visible or not; with the current one, if there is one.
    const std::set<Uuid>& selectedNoteIDs() const { return m_selected; }
    // Selects it with the others, or no longer; the last one stays.
    void toggle(const Uuid& id);
    // Selects all from where the last selection began to that one, which becomes the current one.
    void extendTo(const Uuid& id);
    void selectAll();
    const std::optional<Uuid>& selectedProjectID() const { return m_selectedProjectID; }
    void setSelectedProjectID(std::optional<Uuid> id);
    bool showingTrash() const { return m_showingTrash; }
    void setShowingTrash(bool showing);
    const std::string& query() const { return m_query; }
    void setQuery(std::string query);
    // Selects notes, and shows them whatever was shown; none of them is in the Trash, or soon
    // isn't.
    void reveal(const std::set<Uuid>& ids);

Q_SIGNALS:
    void visibleNotesChanged();
    void selectionChanged(); // of the note, the project or the Trash
    void queryChanged();

private:
    void select(std::set<Uuid> ids, std::optional<Uuid> current);
    void leave();
    void refresh();
    Task<> search();

    const LibrarySession& m_library;
    std::optional<Uuid> m_selectedNoteID;
    std::optional<Uuid> m_began; // where a range of notes begins
    std::set<Uuid> m_selected;
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
