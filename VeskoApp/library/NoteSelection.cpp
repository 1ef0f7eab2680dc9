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
    if (m_selected.size() != 1)
        return nullptr;
    const auto& notes = visibleNotes();
    const auto found = std::ranges::find(notes, *m_selected.begin(), &Note::id);
    return found == notes.end() ? nullptr : &*found;
}

std::vector<const Note*> NoteSelection::selectedNotes() const
{
    std::vector<const Note*> notes;
    if (!m_selected.empty())
        for (const auto& note : visibleNotes())
            if (m_selected.contains(note.id))
                notes.push_back(&note);
    return notes;
}

void NoteSelection::select(std::set<Uuid> ids, std::optional<Uuid> current)
{
    if (m_selected == ids && m_selectedNoteID == current)
        return;
    m_selected = std::move(ids);
    m_selectedNoteID = current;
    Q_EMIT selectionChanged();
}

void NoteSelection::setSelectedNoteID(std::optional<Uuid> id)
{
    m_began = id;
    select(id ? std::set{ *id } : std::set<Uuid>(), id);
}

void NoteSelection::toggle(const Uuid& id)
{
    m_began = id;
    auto ids = m_selected;
    if (ids.insert(id).second) {
        select(std::move(ids), id);
        return;
    }
    if (ids.size() == 1)
        return;
    ids.erase(id);
    select(ids, m_selectedNoteID == id ? *ids.begin() : m_selectedNoteID);
}

void NoteSelection::extendTo(const Uuid& id)
{
    const auto& notes = visibleNotes();
    const auto to = std::ranges::find(notes, id, &Note::id);
    auto from = std::ranges::find(notes, m_began, &Note::id);
    if (to == notes.end())
        return;
    if (from == notes.end()) {
        m_began = id;
        from = to;
    }
    std::set<Uuid> ids;
    for (auto note = std::min(from, to); note <= std::max(from, to); ++note)
        ids.insert(note->id);
    select(std::move(ids), id);
}

void NoteSelection::selectAll()
{
    const auto& notes = visibleNotes();
    if (notes.empty())
        return;
    std::set<Uuid> ids;
    for (const auto& note : notes)
        ids.insert(note.id);
    const bool isThere = m_selectedNoteID && ids.contains(*m_selectedNoteID);
    select(std::move(ids), isThere ? m_selectedNoteID : notes[0].id);
}

// Of several that were selected elsewhere nothing is to be done with those that can't be seen.
void NoteSelection::leave()
{
    if (m_selected.size() > 1)
        setSelectedNoteID(m_selectedNoteID);
}

void NoteSelection::setSelectedProjectID(std::optional<Uuid> id)
{
    if (m_selectedProjectID == id)
        return;
    leave();
    assign(*this, m_selectedProjectID, id, &NoteSelection::selectionChanged);
    refresh();
}

void NoteSelection::setShowingTrash(bool showing)
{
    if (m_showingTrash == showing)
        return;
    leave();
    assign(*this, m_showingTrash, showing, &NoteSelection::selectionChanged);
    refresh();
}

void NoteSelection::setQuery(std::string query)
{
    if (m_query == query)
        return;
    leave();
    assign(*this, m_query, std::move(query), &NoteSelection::queryChanged);
    refresh();
}

void NoteSelection::reveal(const std::set<Uuid>& ids)
{
    setQuery({});
    setShowingTrash(false);
    const bool areHere = !m_selectedProjectID
        || std::ranges::none_of(m_library.contents().notes, [&](const Note& note) {
               return ids.contains(note.id) && note.projectID != m_selectedProjectID;
           });
    if (!areHere)
        setSelectedProjectID(std::nullopt);
    m_began = *ids.begin();
    select(ids, *ids.begin());
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
