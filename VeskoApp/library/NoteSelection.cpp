#include "VeskoApp/library/NoteSelection.h"

#include "VeskoApp/base/Observed.h"

#include <algorithm>
#include <utility>

namespace vesko {

NoteSelection::NoteSelection(LibrarySession& library)
    : m_library(library)
    , m_searches(std::make_shared<std::atomic<unsigned>>(0))
{
    connect(&library, &LibrarySession::changed, this, &NoteSelection::refresh);
}

const SharedArray<Note>& NoteSelection::visibleNotes() const
{
    // While nobody looks, nothing is listed; and until a first search is done, all are.
    if (!m_visibleNotes)
        m_visibleNotes = m_library.contents().filtered(m_selectedProjectID, {}, m_showingTrash);
    return *m_visibleNotes;
}

const Note* NoteSelection::selectedNote() const
{
    const auto& notes = visibleNotes();
    const auto found = std::ranges::find_if(
        notes, [this](const Note& candidate) { return candidate.id == m_selectedNoteID; });
    return found == notes.end() ? nullptr : &*found;
}

void NoteSelection::setSelectedNoteID(std::optional<Uuid> id)
{
    assign(*this, m_selectedNoteID, id, &NoteSelection::selectionChanged);
}

void NoteSelection::setSelectedProjectID(std::optional<Uuid> id)
{
    if (m_selectedProjectID == id)
        return;
    assign(*this, m_selectedProjectID, id, &NoteSelection::selectionChanged);
    refresh();
}

void NoteSelection::setShowingTrash(bool showing)
{
    if (m_showingTrash == showing)
        return;
    assign(*this, m_showingTrash, showing, &NoteSelection::selectionChanged);
    refresh();
}

void NoteSelection::setQuery(std::string query)
{
    if (m_query == query)
        return;
    assign(*this, m_query, std::move(query), &NoteSelection::queryChanged);
    refresh();
}

void NoteSelection::reveal(const Uuid& id)
{
    setQuery({});
    setSelectedNoteID(id);
    setShowingTrash(false);
}

void NoteSelection::refresh()
{
    ++*m_searches;
    if (!m_query.empty()) {
        m_tasks.spawn(search());
        return;
    }
    m_visibleNotes.reset();
    Q_EMIT visibleNotesChanged();
}

// A search that another one has followed is not made, or its result dropped.
Task<> NoteSelection::search()
{
    const auto wanted = m_searches->load();
    const auto isWanted = [searches = m_searches, wanted] { return searches->load() == wanted; };
    auto found = co_await m_searching.run(
        [library = m_library.contents(), project = m_selectedProjectID, query = m_query,
            trash = m_showingTrash, isWanted]() -> std::optional<SharedArray<Note>> {
            if (!isWanted())
                return std::nullopt;
            return library.filtered(project, query, trash);
        });
    if (!found || !isWanted())
        co_return;
    m_visibleNotes = std::move(*found);
    Q_EMIT visibleNotesChanged();
}

} // namespace vesko
