// What the library window does with notes and projects. Each change goes through the store, and
// the copy of the library is taken anew whatever comes of it.

#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/async/Sleep.h"
#include "VeskoCore/base/AtomicFile.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr double copiedIsShown = 1.5; // seconds
constexpr std::size_t longestExportName = 80; // characters

// The edit on top of what stands in the note, if that is an earlier edit from the same base with a
// transcript that has been joined to it: the editor, whose user went on writing, hasn't seen it.
AppModel::PendingEdit onTopOf(const std::optional<AppModel::PendingEdit>& earlier,
    const std::string& body, AppModel::PendingEdit edit)
{
    if (!earlier || earlier->baseBody != edit.baseBody || !body.starts_with(earlier->body))
        return edit;
    edit.body += body.substr(earlier->body.size());
    edit.baseBody = body;
    return edit;
}

} // namespace

void AppModel::newNote()
{
    m_tasks.spawn(createNote());
}

Task<> AppModel::createNote()
{
    if (!m_libraryReady)
        co_return;
    try {
        const Note made
            = co_await m_store.run([project = m_selectedProjectID](LibraryStore& store) {
                  return store.createNote(NoteKind::text, project);
              });
        track(UsageEvent::noteCreated);
        setQuery({});
        setSelectedNoteID(made.id);
        setShowingTrash(false);
    } catch (const std::exception&) {
        report(std::current_exception());
    }
    co_await refreshLibrary();
}

void AppModel::setPendingEdit(const Uuid& id, PendingEdit edit)
{
    m_pendingEdits.insert_or_assign(id, std::move(edit));
}

Task<> AppModel::editNote(Uuid id, PendingEdit edit)
{
    if (!m_libraryReady)
        throw VeskoError(VeskoError::storage);
    std::optional<PendingEdit> earlier;
    if (const auto sent = m_sentEdits.find(id); sent != m_sentEdits.end())
        earlier = sent->second;
    m_sentEdits.insert_or_assign(id, edit);
    co_await m_store.run([id, edit, earlier](LibraryStore& store) {
        const auto& notes = store.snapshot().notes;
        const auto note = std::ranges::find(notes, id, &Note::id);
        const auto whole = note == notes.end() ? edit : onTopOf(earlier, note->body, edit);
        store.editNote(id, whole.title, whole.body, whole.baseBody);
    });
    const auto pending = m_pendingEdits.find(id);
    if (pending != m_pendingEdits.end() && pending->second == edit) {
        m_pendingEdits.erase(pending);
        m_sentEdits.erase(id);
    }
    co_await refreshLibrary();
}

AppModel::Saved AppModel::saveEdit(const Uuid& id, PendingEdit edit)
{
    Saved saved;
    m_tasks.spawn(save(id, std::move(edit), saved));
    return saved;
}

Task<> AppModel::save(Uuid id, PendingEdit edit, Saved saved)
{
    std::exception_ptr failure;
    try {
        co_await editNote(id, std::move(edit));
    } catch (const std::exception&) {
        failure = std::current_exception();
        report(failure);
    }
    saved.set(failure);
}

void AppModel::createProject(const std::string& name)
{
    m_tasks.spawn(change([name](LibraryStore& store) { store.createProject(name); }));
}

void AppModel::renameProject(const Uuid& id, const std::string& name)
{
    m_tasks.spawn(change([id, name](LibraryStore& store) { store.renameProject(id, name); }));
}

void AppModel::assign(const Note& note, std::optional<Uuid> project)
{
    m_tasks.spawn(
        change([id = note.id, project](LibraryStore& store) { store.assignNote(id, project); }));
}

void AppModel::trash(const Note& note, bool permanently)
{
    if (permanently)
        m_tasks.spawn(deleteNote(note.id));
    else
        m_tasks.spawn(change([id = note.id](LibraryStore& store) { store.trashNote(id); }));
}

Task<> AppModel::deleteNote(Uuid id)
{
    co_await change([id](LibraryStore& store) { store.deletePermanently(id); });
    // What could not be saved of a note that is no more would hold up every quit.
    if (!note(id))
        m_pendingEdits.erase(id);
}

void AppModel::restore(const Note& note)
{
    m_tasks.spawn(change([id = note.id](LibraryStore& store) { store.restoreNote(id); }));
}

std::optional<std::string> AppModel::noteClipboardText(const Uuid& id) const
{
    const Note* const saved = note(id);
    if (!saved)
        return std::nullopt;
    const auto pending = m_pendingEdits.find(id);
    auto text = pending == m_pendingEdits.end()
        ? saved->clipboardText()
        : saved->applyingDraft(
                   pending->second.title, pending->second.body, pending->second.baseBody)
              .clipboardText();
    if (text.empty())
        return std::nullopt;
    return text;
}

void AppModel::copyNote(const Uuid& id)
{
    if (!note(id))
        return;
    const auto text = noteClipboardText(id);
    if (!text) {
        setMessage(L10N_KEY("Vesko", "This note has no text to copy yet"));
        return;
    }
    if (!copy(*text))
        return;
    setMessage(L10N_KEY("Vesko", "Note copied to clipboard"));
    assign(m_copiedNoteID, std::optional(id), &AppModel::copiedNoteChanged);
    m_tasks.spawn(showCopied(id));
}

Task<> AppModel::showCopied(Uuid id)
{
    co_await sleepFor(m_platform.clock, copiedIsShown);
    if (m_copiedNoteID == id)
        assign(m_copiedNoteID, std::optional<Uuid>{}, &AppModel::copiedNoteChanged);
}

std::string AppModel::exportName(const Note& note)
{
    std::string name(firstCharacters(note.displayTitle(), longestExportName));
    std::ranges::replace(name, '/', '-');
    return name + ".md";
}

void AppModel::exportNote(const Uuid& id, const std::filesystem::path& file)
{
    const Note* const exported = note(id);
    if (!exported)
        return;
    const auto project = std::ranges::find_if(m_library.projects,
        [&](const Project& candidate) { return candidate.id == exported->projectID; });
    auto markdown = exported->markdown(
        project == m_library.projects.end() ? std::nullopt : std::optional(project->name));
    m_tasks.spawn(writeExport(std::move(markdown), file));
}

Task<> AppModel::writeExport(std::string markdown, std::filesystem::path file)
{
    try {
        co_await m_texts.run([markdown = std::move(markdown), file = std::move(file)] {
            AtomicFile(FileSystem::posix(), file).write(markdown);
        });
        setMessage(L10N_KEY("Vesko", "Markdown exported"));
        track(UsageEvent::noteExported);
    } catch (const std::exception&) {
        report(std::current_exception());
    }
}

void AppModel::openDataFolder()
{
    m_platform.desktop.openFolder(m_platform.dataFolder);
}

} // namespace vesko
