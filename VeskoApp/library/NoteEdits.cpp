#include "VeskoApp/library/NoteEdits.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

// The edit on top of what stands in the note, if that is an earlier edit from the same base with a
// transcript that has been joined to it: the editor, whose user went on writing, hasn't seen it.
NoteEdits::PendingEdit onTopOf(const std::optional<NoteEdits::PendingEdit>& earlier,
    const std::string& body, NoteEdits::PendingEdit edit)
{
    if (!earlier || earlier->baseBody != edit.baseBody || !body.starts_with(earlier->body))
        return edit;
    edit.body += body.substr(earlier->body.size());
    edit.baseBody = body;
    return edit;
}

} // namespace

NoteEdits::NoteEdits(LibrarySession& library, StatusLine& status)
    : m_library(library)
    , m_status(status)
{
}

void NoteEdits::setPending(const Uuid& id, PendingEdit edit)
{
    m_pending.insert_or_assign(id, std::move(edit));
}

NoteEdits::Saved NoteEdits::save(const Uuid& id, PendingEdit edit)
{
    Saved saved;
    m_tasks.spawn(write(id, std::move(edit), saved));
    return saved;
}

Task<> NoteEdits::write(Uuid id, PendingEdit edit, Saved saved)
{
    std::optional<PendingEdit> earlier;
    if (const auto sent = m_sent.find(id); sent != m_sent.end())
        earlier = sent->second;
    if (m_library.ready())
        m_sent.insert_or_assign(id, edit);
    const auto outcome = co_await m_library.change([id, edit, earlier](LibraryStore& store) {
        const auto& notes = store.snapshot().notes;
        const auto note = std::ranges::find(notes, id, &Note::id);
        const auto whole = note == notes.end() ? edit : onTopOf(earlier, note->body, edit);
        store.editNote(id, whole.title, whole.body, whole.baseBody);
    });
    if (!outcome) {
        m_status.report(outcome.error());
        saved.set(outcome.error());
        co_return;
    }
    const auto pending = m_pending.find(id);
    if (pending != m_pending.end() && pending->second == edit) {
        m_pending.erase(pending);
        m_sent.erase(id);
    }
    saved.set(nullptr);
}

Task<bool> NoteEdits::saveAll()
{
    // Others may be typed while these are being saved.
    while (!m_pending.empty()) {
        const auto [id, edit] = *m_pending.begin();
        if (co_await save(id, edit))
            co_return false;
    }
    co_return true;
}

} // namespace vesko
