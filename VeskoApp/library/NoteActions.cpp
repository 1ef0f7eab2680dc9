#include "VeskoApp/library/NoteActions.h"

#include "VeskoApp/async/Sleep.h"
#include "VeskoApp/base/Observed.h"
#include "VeskoApp/library/MarkdownFiles.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/UserFile.h"

#include <utility>

namespace vesko {

namespace {

constexpr double copiedIsShown = 1.5; // seconds

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
    if (!m_library.ready())
        return;
    Q_EMIT newNoteBegun();
    m_tasks.spawn(create());
}

Task<> NoteActions::create()
{
    const auto made = co_await m_library.change(
        [project = m_selection.selectedProjectID()](
            LibraryStore& store) { return store.createNote(NoteKind::text, project); });
    if (!made) {
        m_status.report(made.error());
        Q_EMIT newNoteEnded(false);
        co_return;
    }
    m_analytics.track(UsageEvent::noteCreated);
    m_selection.reveal({ made->id });
    Q_EMIT newNoteEnded(true);
}

void NoteActions::assign(LibraryStore::Places places)
{
    m_library.apply(
        [places = std::move(places)](LibraryStore& store) { store.assignNotes(places); });
}

void NoteActions::trash(std::set<Uuid> ids)
{
    m_library.apply([ids = std::move(ids)](LibraryStore& store) { store.trashNotes(ids); });
}

void NoteActions::restore(std::set<Uuid> ids)
{
    m_library.apply([ids = std::move(ids)](LibraryStore& store) { store.restoreNotes(ids); });
}

void NoteActions::remove(std::set<Uuid> ids)
{
    m_tasks.spawn(removed(std::move(ids)));
}

Task<> NoteActions::removed(std::set<Uuid> ids)
{
    const auto outcome
        = co_await m_library.change([ids](LibraryStore& store) { store.deletePermanently(ids); });
    if (!outcome)
        m_status.report(outcome.error());
    for (const auto& id : ids)
        if (!m_library.note(id))
            m_edits.forget(id);
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

void NoteActions::exportTo(const Uuid& id, const std::filesystem::path& file)
{
    if (const Note* const exported = m_library.note(id))
        m_tasks.spawn(writeExport(markdownOf(m_library.contents(), *exported), file));
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

void NoteActions::exportInto(std::set<Uuid> ids, std::filesystem::path folder)
{
    m_tasks.spawn(writeExports(std::move(ids), std::move(folder)));
}

Task<> NoteActions::writeExports(std::set<Uuid> ids, std::filesystem::path folder)
{
    try {
        co_await m_writing.run(
            [library = m_library.contents(), ids = std::move(ids), folder = std::move(folder)] {
                writeMarkdownFiles(library, ids, folder);
            });
        m_status.setMessage(L10N_KEY("Vesko", "Markdown exported"));
        m_analytics.track(UsageEvent::noteExported);
    } catch (const std::exception&) {
        m_status.report(std::current_exception());
    }
}

} // namespace vesko
