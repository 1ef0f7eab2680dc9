// Which notes the library window shows, and which of them is selected.

#include "VeskoApp/capture/AppModel.h"

#include <algorithm>
#include <utility>

namespace vesko {

const SharedArray<Note>& AppModel::visibleNotes() const
{
    // While nobody looks, nothing is listed; and until a first search is done, all are.
    if (!m_visibleNotes)
        m_visibleNotes = m_library.filtered(m_selectedProjectID, {}, m_showingTrash);
    return *m_visibleNotes;
}

const Note* AppModel::selectedNote() const
{
    const auto& notes = visibleNotes();
    const auto found = std::ranges::find_if(
        notes, [this](const Note& candidate) { return candidate.id == m_selectedNoteID; });
    return found == notes.end() ? nullptr : &*found;
}

const Note* AppModel::note(const Uuid& id) const
{
    const auto found = std::ranges::find(m_library.notes, id, &Note::id);
    return found == m_library.notes.end() ? nullptr : &*found;
}

void AppModel::setSelectedNoteID(std::optional<Uuid> id)
{
    assign(m_selectedNoteID, id, &AppModel::selectionChanged);
}

void AppModel::setSelectedProjectID(std::optional<Uuid> id)
{
    if (m_selectedProjectID == id)
        return;
    assign(m_selectedProjectID, id, &AppModel::selectionChanged);
    refreshVisibleNotes();
}

void AppModel::setShowingTrash(bool showing)
{
    if (m_showingTrash == showing)
        return;
    assign(m_showingTrash, showing, &AppModel::selectionChanged);
    refreshVisibleNotes();
}

void AppModel::setQuery(std::string query)
{
    if (m_query == query)
        return;
    assign(m_query, std::move(query), &AppModel::queryChanged);
    refreshVisibleNotes();
}

void AppModel::refreshVisibleNotes()
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
Task<> AppModel::search()
{
    const auto wanted = m_searches->load();
    const auto isWanted = [searches = m_searches, wanted] { return searches->load() == wanted; };
    auto found = co_await m_texts.run(
        [library = m_library, project = m_selectedProjectID, query = m_query,
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
