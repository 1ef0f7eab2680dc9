#include "VeskoApp/notes/SelectedNotes.h"

#include "VeskoApp/exchange/UserPaths.h"
#include "VeskoApp/notes/NoteDrag.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QDrag>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr double undoIsOffered = 10; // seconds

} // namespace

SelectedNotes::SelectedNotes(EventClock& clock, FileChooser& fileChooser, LibrarySession& library,
    NoteSelection& selection, NoteActions& notes, StatusLine& status)
    : m_fileChooser(fileChooser)
    , m_library(library)
    , m_selection(selection)
    , m_notes(notes)
    , m_status(status)
    , m_undoEnd(clock)
{
    connect(&selection, &NoteSelection::visibleNotesChanged, this, &SelectedNotes::countChanged);
    connect(&selection, &NoteSelection::selectionChanged, this, &SelectedNotes::countChanged);
    connect(&library, &LibrarySession::changed, this, &SelectedNotes::lookAtMoved);
}

QString SelectedNotes::title() const
{
    return translated(L10N_KEY("Vesko", "%1 notes selected"), m_selection.selectedNotes().size());
}

QString SelectedNotes::trashQuestion() const
{
    return translated(
        L10N_KEY("Vesko", "Move %1 notes to Trash?"), m_selection.selectedNotes().size());
}

QString SelectedNotes::removeQuestion() const
{
    return translated(L10N_KEY("Vesko", "Delete %1 notes and their recordings permanently?"),
        m_selection.selectedNotes().size());
}

std::set<Uuid> SelectedNotes::ids() const
{
    std::set<Uuid> ids;
    for (const Note* note : m_selection.selectedNotes())
        ids.insert(note->id);
    return ids;
}

void SelectedNotes::assign(const QString& projectID)
{
    move(ids(), Uuid::parse(projectID.toStdString()));
}

void SelectedNotes::trash()
{
    trash(ids());
}

void SelectedNotes::move(const std::set<Uuid>& ids, std::optional<Uuid> project)
{
    Move move{ .from = {}, .toTrash = false, .project = project };
    LibraryStore::Places places;
    for (const auto& note : m_library.contents().notes) {
        if (!ids.contains(note.id) || note.projectID == project)
            continue;
        move.from.emplace(note.id, note.projectID);
        places.emplace(note.id, project);
    }
    if (places.empty())
        return;
    expect(std::move(move));
    m_notes.assign(std::move(places));
}

void SelectedNotes::trash(const std::set<Uuid>& ids)
{
    if (ids.empty())
        return;
    Move move{ .from = {}, .toTrash = true, .project = {} };
    for (const auto& id : ids)
        move.from.emplace(id, std::nullopt);
    expect(std::move(move));
    m_notes.trash(ids);
}

void SelectedNotes::drag()
{
    m_dragged = ids();
    if (m_dragged.empty())
        return;
    // Where the session's own files are, which goes with it whatever becomes of us.
    m_dragFolder = std::make_shared<QTemporaryDir>(
        QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
        + QStringLiteral("/vesko-notes-XXXXXX"));
    auto* const drag = new QDrag(this);
    drag->setMimeData(new NoteDrag(m_library.contents(), m_dragged, m_dragFolder,
        [this](const std::exception_ptr& failure) { m_status.report(failure); }));
    drag->exec(Qt::CopyAction);
}

void SelectedNotes::dropOnProject(const QString& projectID)
{
    move(m_dragged, Uuid::parse(projectID.toStdString()));
}

void SelectedNotes::dropOnTrash()
{
    trash(m_dragged);
}

void SelectedNotes::restore()
{
    if (auto selected = ids(); !selected.empty())
        m_notes.restore(std::move(selected));
}

void SelectedNotes::deletePermanently()
{
    if (auto selected = ids(); !selected.empty())
        m_notes.remove(std::move(selected));
}

void SelectedNotes::expect(Move move)
{
    m_moved = std::move(move);
    m_undoEnd.cancel(); // of one before
    Q_EMIT undoChanged();
}

bool SelectedNotes::isDone(const Move& move) const
{
    return std::cmp_equal(
        move.from.size(), std::ranges::count_if(m_library.contents().notes, [&](const Note& note) {
            return move.from.contains(note.id)
                && (move.toTrash ? note.deletedAt.has_value() : note.projectID == move.project);
        }));
}

// It can be taken back as long as all of them are where they went.
void SelectedNotes::lookAtMoved()
{
    const bool done = m_moved && isDone(*m_moved);
    if (done == m_undoEnd.pending())
        return;
    if (done) {
        m_undoEnd.start(undoIsOffered, [this] {
            m_moved.reset();
            Q_EMIT undoChanged();
        });
    } else {
        m_undoEnd.cancel();
        m_moved.reset();
    }
    Q_EMIT undoChanged();
}

QString SelectedNotes::undoText() const
{
    if (!m_undoEnd.pending())
        return {};
    const auto moved = m_moved->from.size();
    if (m_moved->toTrash)
        return moved == 1 ? translated(L10N_KEY("Vesko", "Moved to Trash"))
                          : translated(L10N_KEY("Vesko", "%1 notes moved to Trash"), moved);
    return moved == 1 ? translated(L10N_KEY("Vesko", "Note moved to another project"))
                      : translated(L10N_KEY("Vesko", "%1 notes moved to another project"), moved);
}

void SelectedNotes::undo()
{
    if (!m_undoEnd.pending())
        return;
    const auto move = *m_moved;
    if (!move.toTrash) {
        m_notes.assign(move.from);
        return;
    }
    std::set<Uuid> gone;
    for (const auto& [id, project] : move.from)
        gone.insert(id);
    m_notes.restore(gone);
    m_selection.reveal(gone);
}

void SelectedNotes::chooseExport(QWindow* above)
{
    if (auto selected = ids(); above && !selected.empty())
        m_tasks.spawn(exportInto(std::move(selected),
            m_fileChooser.folder(
                { .title = translated(L10N_KEY("Vesko", "Export Markdown…")).toStdString(),
                    .agree = translated(L10N_KEY("Vesko", "Save")).toStdString(),
                    .file = offeredFile({}).toStdString(),
                    .kind = {},
                    .pattern = {} },
                *above)));
}

Task<> SelectedNotes::exportInto(std::set<Uuid> ids, Eventual<FileChooser::Answer> chosen)
{
    const auto answer = co_await chosen;
    if (answer.outcome == FileChooser::Answer::chosen)
        m_notes.exportInto(std::move(ids), answer.file);
    else if (answer.outcome == FileChooser::Answer::unavailable)
        Q_EMIT exportPathWanted();
}

QString SelectedNotes::exportPath() const
{
    return writtenPath(offeredFile({}));
}

void SelectedNotes::exportTo(const QString& path)
{
    if (auto selected = ids(); !selected.empty())
        m_notes.exportInto(std::move(selected), wholePath(path).toStdString());
}

} // namespace vesko
