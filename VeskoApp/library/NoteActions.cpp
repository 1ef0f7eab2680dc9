#include "VeskoApp/library/NoteActions.h"

#include "VeskoApp/async/Sleep.h"
#include "VeskoApp/base/Observed.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/base/UserFile.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr double copiedIsShown = 1.5; // seconds
constexpr std::size_t longestExportName = 80; // characters

} // namespace

NoteActions::NoteActions(EventClock& clock, LibrarySession& library, NoteSelection& selection,
    NoteEdits& edits, TextCopy& clipboard, Analytics& analytics, StatusLine& status)
    : m_clock(clock)
    , m_library(library)
    , m_selection(selection)
    , m_edits(edits)
    , m_clipboard(clipboard)
    , m_analytics(analytics)
    , m_status(status)
{
}

void NoteActions::newNote()
{
    if (m_library.ready())
        m_tasks.spawn(create());
}

Task<> NoteActions::create()
{
    const auto made = co_await m_library.change(
        [project = m_selection.selectedProjectID()](
            LibraryStore& store) { return store.createNote(NoteKind::text, project); });
    if (!made) {
        m_status.report(made.error());
        co_return;
    }
    m_analytics.track(UsageEvent::noteCreated);
    m_selection.reveal(made->id);
}

void NoteActions::assign(const Note& note, std::optional<Uuid> project)
{
    m_library.apply(
        [id = note.id, project](LibraryStore& store) { store.assignNote(id, project); });
}

void NoteActions::trash(const Note& note, bool permanently)
{
    if (permanently)
        m_tasks.spawn(remove(note.id));
    else
        m_library.apply([id = note.id](LibraryStore& store) { store.trashNote(id); });
}

Task<> NoteActions::remove(Uuid id)
{
    const auto removed
        = co_await m_library.change([id](LibraryStore& store) { store.deletePermanently(id); });
    if (!removed)
        m_status.report(removed.error());
    if (!m_library.note(id))
        m_edits.forget(id);
}

void NoteActions::restore(const Note& note)
{
    m_library.apply([id = note.id](LibraryStore& store) { store.restoreNote(id); });
}

void NoteActions::createProject(const std::string& name)
{
    m_library.apply([name](LibraryStore& store) { store.createProject(name); });
}

void NoteActions::renameProject(const Uuid& id, const std::string& name)
{
    m_library.apply([id, name](LibraryStore& store) { store.renameProject(id, name); });
}

std::optional<std::string> NoteActions::clipboardText(const Uuid& id) const
{
    const Note* const saved = m_library.note(id);
    if (!saved)
        return std::nullopt;
    const auto pending = m_edits.pending().find(id);
    auto text = pending == m_edits.pending().end()
        ? saved->clipboardText()
        : saved->applyingDraft(
                   pending->second.title, pending->second.body, pending->second.baseBody)
              .clipboardText();
    if (text.empty())
        return std::nullopt;
    return text;
}

void NoteActions::copy(const Uuid& id)
{
    if (!m_library.note(id))
        return;
    const auto text = clipboardText(id);
    if (!text) {
        m_status.setMessage(L10N_KEY("Vesko", "This note has no text to copy yet"));
        return;
    }
    if (!m_clipboard.copy(*text))
        return;
    m_status.setMessage(L10N_KEY("Vesko", "Note copied to clipboard"));
    vesko::assign(*this, m_copiedNoteID, id, &NoteActions::copiedNoteChanged);
    m_tasks.spawn(showCopied(id));
}

Task<> NoteActions::showCopied(Uuid id)
{
    co_await sleepFor(m_clock, copiedIsShown);
    if (m_copiedNoteID == id)
        vesko::assign(*this, m_copiedNoteID, std::nullopt, &NoteActions::copiedNoteChanged);
}

std::string NoteActions::exportName(const Note& note)
{
    std::string name(firstCharacters(note.displayTitle(), longestExportName));
    std::ranges::replace(name, '/', '-');
    return name + ".md";
}

void NoteActions::exportTo(const Uuid& id, const std::filesystem::path& file)
{
    const Note* const exported = m_library.note(id);
    if (!exported)
        return;
    const auto& projects = m_library.contents().projects;
    const auto project = std::ranges::find_if(
        projects, [&](const Project& candidate) { return candidate.id == exported->projectID; });
    auto markdown = exported->markdown(
        project == projects.end() ? std::nullopt : std::optional(project->name));
    m_tasks.spawn(writeExport(std::move(markdown), file));
}

Task<> NoteActions::writeExport(std::string markdown, std::filesystem::path file)
{
    try {
        co_await m_writing.run([markdown = std::move(markdown), file = std::move(file)] {
            writeUserFile(FileSystem::posix(), file, markdown);
        });
        m_status.setMessage(L10N_KEY("Vesko", "Markdown exported"));
        m_analytics.track(UsageEvent::noteExported);
    } catch (const std::exception&) {
        m_status.report(std::current_exception());
    }
}

} // namespace vesko
