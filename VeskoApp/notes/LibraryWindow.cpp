#include "VeskoApp/notes/LibraryWindow.h"

#include "VeskoApp/exchange/UserPaths.h"
#include "VeskoApp/library/MarkdownFiles.h"
#include "VeskoApp/notes/NoteWords.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr const char* unopened = L10N_KEY("Vesko", "The library could not be opened");

QString shown(const std::optional<Uuid>& id)
{
    return id ? QString::fromStdString(id->text()) : QString();
}

std::optional<Uuid> identity(const QString& text)
{
    return Uuid::parse(text.toStdString());
}

QVariantMap words(const char* title, const char* text, const char* button)
{
    return { { QStringLiteral("title"), translated(title) },
        { QStringLiteral("text"), translated(text) },
        { QStringLiteral("button"), translated(button) }, { QStringLiteral("makesNote"), false } };
}

// Where a note is exported to if the user has no better idea.
QString exportFile(const Note& note)
{
    return offeredFile(QString::fromStdString(markdownName(note)));
}

} // namespace

LibraryWindow::LibraryWindow(const Neighbours& neighbours)
    : m_to(neighbours)
    , m_selected(neighbours.clock, neighbours.fileChooser, neighbours.library, neighbours.selection,
          neighbours.notes, neighbours.status)
{
    const auto& selection = m_to.selection;
    connect(&selection, &NoteSelection::visibleNotesChanged, this, &LibraryWindow::showNotes);
    connect(&selection, &NoteSelection::selectionChanged, this, [this] {
        Q_EMIT sidebarChanged();
        Q_EMIT emptyStateChanged();
        m_notes.setChosen(m_to.selection.selectedNoteIDs());
        showEditor();
    });
    connect(&selection, &NoteSelection::queryChanged, this, [this] {
        Q_EMIT queryChanged();
        Q_EMIT emptyStateChanged();
    });
    const auto& library = m_to.library;
    connect(&library, &LibrarySession::changed, this, &LibraryWindow::sidebarChanged);
    for (const auto tell : { &LibraryWindow::emptyStateChanged, &LibraryWindow::statusLineChanged })
        connect(&library, &LibrarySession::readyChanged, this, tell);
    for (const auto changed : { &LibrarySession::readyChanged, &LibrarySession::openingChanged })
        connect(&library, changed, this, &LibraryWindow::stateChanged);
    const auto& capture = m_to.capture;
    connect(&capture, &Capture::phaseChanged, this, &LibraryWindow::stateChanged);
    for (const auto changed : { &Capture::phaseTitleChanged, &Capture::elapsedChanged })
        connect(&capture, changed, this, &LibraryWindow::statusLineChanged);
    connect(&m_to.status, &StatusLine::messageChanged, this, &LibraryWindow::statusLineChanged);
    connect(&m_to.notes, &NoteActions::copiedNoteChanged, this, &LibraryWindow::copiedChanged);
    connect(&m_to.notes, &NoteActions::newNoteBegun, this, &LibraryWindow::newNoteBegun);
    connect(&m_to.notes, &NoteActions::newNoteEnded, this, &LibraryWindow::newNoteEnded);
    connect(&m_to.playback, &Playback::playingChanged, this, &LibraryWindow::playingChanged);
    showNotes();
}

LibraryWindow::~LibraryWindow() = default;

void LibraryWindow::showNotes()
{
    std::unordered_map<Uuid, QString> named;
    if (!m_to.selection.selectedProjectID())
        for (const auto& project : m_to.library.contents().projects)
            named.emplace(project.id, QString::fromStdString(project.name));
    m_notes.setProjects(std::move(named));
    m_notes.setQuery(m_to.selection.query());
    m_notes.setChosen(m_to.selection.selectedNoteIDs());
    m_notes.setNotes(m_to.selection.visibleNotes());
    showEditor();
    Q_EMIT emptyStateChanged();
}

// An editor belongs to one note; what it has not saved yet is saved when it goes.
void LibraryWindow::showEditor()
{
    const Note* const note = m_to.selection.selectedNote();
    if (note && m_editor && m_editor->id() == note->id) {
        m_editor->refresh(*note);
        Q_EMIT notesChanged();
        return;
    }
    auto former = std::exchange(m_editor,
        note ? std::make_unique<NoteEditor>(m_to.edits, m_to.library, m_to.clock, *note) : nullptr);
    if (former)
        former->flush();
    if (former || m_editor)
        Q_EMIT editorChanged();
    if (former)
        former.release()->deleteLater(); // its view may still be on its way out
    Q_EMIT notesChanged();
}

QString LibraryWindow::listTitle() const
{
    if (m_to.selection.showingTrash())
        return translated(L10N_KEY("Vesko", "Trash"));
    const auto& projects = m_to.library.contents().projects;
    const auto project = std::ranges::find_if(projects, [this](const Project& candidate) {
        return candidate.id == m_to.selection.selectedProjectID();
    });
    return project == projects.end() ? translated(L10N_KEY("Vesko", "All notes"))
                                     : QString::fromStdString(project->name);
}

QString LibraryWindow::selectedProjectID() const
{
    return shown(m_to.selection.selectedProjectID());
}

QVariantList LibraryWindow::projects() const
{
    QVariantList rows;
    for (const auto& project : m_to.library.contents().projects)
        rows << QVariantMap{ { QStringLiteral("id"), shown(project.id) },
            { QStringLiteral("name"), QString::fromStdString(project.name) } };
    return rows;
}

int LibraryWindow::selectedRow() const
{
    const auto& id = m_to.selection.selectedNoteID();
    return id ? m_notes.rowOf(*id) : -1;
}

QVariantList LibraryWindow::editors() const
{
    return m_editor ? QVariantList{ QVariant::fromValue<QObject*>(m_editor.get()) }
                    : QVariantList{};
}

QVariant LibraryWindow::emptyState() const
{
    const auto& refusal = m_to.library.refusal();
    if (!refusal.empty())
        return words(unopened, refusal.c_str(), L10N_KEY("Vesko", "Open data folder"));
    if (m_notes.rowCount() > 0 || !m_to.library.ready())
        return {};
    if (m_to.selection.showingTrash())
        return words(L10N_KEY("Vesko", "Trash is empty"),
            L10N_KEY("Vesko", "Notes you move to Trash can be restored here."), "");
    if (!m_to.selection.query().empty())
        return words(L10N_KEY("Vesko", "No matching notes"),
            L10N_KEY("Vesko", "Try another search or clear the search field."),
            L10N_KEY("Vesko", "Clear search"));
    auto first = words(L10N_KEY("Vesko", "A place for your next thought"),
        L10N_KEY(
            "Vesko", "Record your voice or start a text note. Your originals stay on this Mac."),
        L10N_KEY("Vesko", "New note"));
    first[QStringLiteral("makesNote")] = true;
    return first;
}

void LibraryWindow::fillEmptyState()
{
    if (!m_to.library.refusal().empty())
        m_to.desktop.openFolder(m_to.dataFolder);
    else
        m_to.selection.setQuery({});
}

QString LibraryWindow::statusLine() const
{
    switch (m_to.capture.phase()) {
    case Phase::recording:
        return translated(L10N_KEY("Vesko", "Recording %1"))
            .arg(shownDuration(m_to.capture.elapsed()));
    case Phase::idle:
        if (!m_to.library.refusal().empty())
            return translated(unopened);
        if (!opening())
            return m_to.status.messageText();
        break;
    case Phase::preparing:
    case Phase::processing:
        break;
    }
    return m_to.capture.phaseTitle();
}

QString LibraryWindow::refusal() const
{
    return translated(m_to.library.refusal());
}

QString LibraryWindow::copiedNoteID() const
{
    return shown(m_to.notes.copiedNoteID());
}

QString LibraryWindow::playingID() const
{
    return shown(m_to.playback.playingID());
}

QString LibraryWindow::recordText() const
{
    return m_to.capture.isRecording() ? translated(L10N_KEY("Vesko", "Finish recording"))
                                      : translated(L10N_KEY("Vesko", "Record note"));
}

void LibraryWindow::showAllNotes()
{
    m_to.selection.setShowingTrash(false);
    m_to.selection.setSelectedProjectID(std::nullopt);
}

void LibraryWindow::showTrash()
{
    m_to.selection.setSelectedProjectID(std::nullopt);
    m_to.selection.setShowingTrash(true);
}

void LibraryWindow::showProject(const QString& id)
{
    m_to.selection.setShowingTrash(false);
    m_to.selection.setSelectedProjectID(identity(id));
}

void LibraryWindow::selectRow(int row, int modifiers)
{
    const auto& notes = m_notes.notes();
    if (row < 0 || static_cast<std::size_t>(row) >= notes.size())
        return;
    const auto id = notes[static_cast<std::size_t>(row)].id;
    if (modifiers & Qt::ShiftModifier)
        m_to.selection.extendTo(id);
    else if (modifiers & Qt::ControlModifier)
        m_to.selection.toggle(id);
    else
        m_to.selection.setSelectedNoteID(id);
}

void LibraryWindow::dragRow(int row)
{
    const auto& notes = m_notes.notes();
    if (row < 0 || static_cast<std::size_t>(row) >= notes.size() || showingTrash())
        return;
    if (const auto& id = notes[static_cast<std::size_t>(row)].id;
        !m_to.selection.selectedNoteIDs().contains(id))
        m_to.selection.setSelectedNoteID(id);
    m_selected.drag();
}

void LibraryWindow::saveProject(const QString& renameID, const QString& name)
{
    if (const auto id = identity(renameID))
        m_to.notes.renameProject(*id, name.toStdString());
    else
        m_to.notes.createProject(name.toStdString());
}

void LibraryWindow::copyNote()
{
    if (m_editor)
        m_to.notes.copy(m_editor->id());
}

void LibraryWindow::chooseExport(QWindow* above)
{
    const Note* const note = m_to.selection.selectedNote();
    if (!note || !above)
        return;
    m_tasks.spawn(exportTo(note->id,
        m_to.fileChooser.save(
            { .title = translated(L10N_KEY("Vesko", "Export Markdown…")).toStdString(),
                .agree = translated(L10N_KEY("Vesko", "Save")).toStdString(),
                .file = exportFile(*note).toStdString(),
                .kind = "Markdown",
                .pattern = "*.md" },
            *above)));
}

Task<> LibraryWindow::exportTo(Uuid id, Eventual<FileChooser::Answer> chosen)
{
    const auto answer = co_await chosen;
    if (answer.outcome == FileChooser::Answer::chosen)
        m_to.notes.exportTo(id, answer.file);
    else if (answer.outcome == FileChooser::Answer::unavailable && m_editor && m_editor->id() == id)
        Q_EMIT exportPathWanted();
}

QString LibraryWindow::exportPath() const
{
    const Note* const note = m_to.selection.selectedNote();
    if (!note)
        return {};
    return writtenPath(exportFile(*note));
}

bool LibraryWindow::replacesFile(const QString& path)
{
    return QFileInfo::exists(wholePath(path));
}

void LibraryWindow::exportNote(const QString& path)
{
    if (m_editor)
        m_to.notes.exportTo(m_editor->id(), wholePath(path).toStdString());
}

void LibraryWindow::play(const QString& recordingID)
{
    if (const auto* recording = m_editor ? m_editor->recordingList().find(recordingID) : nullptr)
        m_to.playback.play(*recording);
}

void LibraryWindow::showInFolder(const QString& recordingID)
{
    if (const auto* recording = m_editor ? m_editor->recordingList().find(recordingID) : nullptr)
        m_tasks.spawn(show(*recording));
}

Task<> LibraryWindow::show(Recording recording)
{
    try {
        m_to.desktop.showFile(co_await m_to.library.audioFile(std::move(recording)));
    } catch (const std::exception&) {
        m_to.status.report(std::current_exception());
    }
}

void LibraryWindow::retry(const QString& recordingID)
{
    if (const auto* recording = m_editor ? m_editor->recordingList().find(recordingID) : nullptr)
        m_to.run.retry(*recording, false);
}

} // namespace vesko
