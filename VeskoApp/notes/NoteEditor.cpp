#include "VeskoApp/notes/NoteEditor.h"

#include "VeskoApp/wording/Translated.h"

#include <QTextCursor>

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

// The text as a document holds it: each line end of whatever kind is one character.
QString asShown(const std::string& text)
{
    auto shown = QString::fromStdString(text);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    shown.replace(u'\r', u'\n');
    shown.replace(QChar::ParagraphSeparator, u'\n');
    return shown;
}

// Not the plain text, in which a no-break space would have become an ordinary one.
QString textOf(const QTextDocument& document)
{
    auto text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

} // namespace

NoteEditor::NoteEditor(
    NoteEdits& edits, const LibrarySession& library, EventClock& clock, const Note& note)
    : m_edits(edits)
    , m_library(library)
    , m_id(note.id)
    , m_kind(note.kind)
    , m_title(note.title)
    , m_text(note.body)
    , m_baseBody(note.body)
    , m_saveTimer(clock)
{
    const auto pending = edits.pending().find(m_id);
    if (pending != edits.pending().end()) {
        // An earlier editor's, that is being saved or could not be.
        m_title = pending->second.title;
        m_text = pending->second.body;
        m_baseBody = pending->second.baseBody;
        m_dirty = true;
        m_saveTimer.start(saveDelay, [this] { save(); });
    }
    refresh(note);
}

NoteEditor::~NoteEditor()
{
    flush();
}

void NoteEditor::attach(QTextDocument& document)
{
    m_document = &document;
    m_shown = asShown(m_text);
    document.setPlainText(m_shown);
    document.clearUndoRedoStacks();
    connect(&document, &QTextDocument::contentsChanged, this, &NoteEditor::documentChanged);
}

void NoteEditor::flush()
{
    m_saveTimer.cancel();
    if (m_dirty && m_savingChange != m_changes)
        m_edits.save(m_id, draft());
}

void NoteEditor::refresh(const Note& note)
{
    m_trashed = note.deletedAt.has_value();
    m_projectID = note.projectID;
    m_recordings.setRecordings(note.recordings);
    Q_EMIT noteChanged();
    if (m_dirty || note.body == m_text)
        return;
    m_baseBody = note.body;
    m_text = note.body;
    showText();
}

void NoteEditor::setTitle(const QString& title)
{
    auto text = title.toStdString();
    if (text == m_title || m_trashed)
        return;
    m_title = std::move(text);
    Q_EMIT titleChanged();
    scheduleSave();
}

QString NoteEditor::titlePrompt() const
{
    Note untitled;
    untitled.kind = m_kind;
    return translated(untitled.untitledLabel());
}

QString NoteEditor::projectID() const
{
    return m_projectID ? QString::fromStdString(m_projectID->text()) : QString();
}

void NoteEditor::documentChanged()
{
    if (m_merging)
        return;
    auto text = textOf(*m_document);
    if (text == m_shown)
        return;
    m_shown = std::move(text);
    if (m_trashed)
        return;
    m_text = m_shown.toStdString();
    scheduleSave();
}

// Changes no more of the document than differs, as a step that can be undone: caret, selection and
// the user's own steps stay.
void NoteEditor::showText()
{
    auto text = asShown(m_text);
    if (!m_document || text == m_shown)
        return;
    const auto [oldMiddle, newMiddle]
        = std::mismatch(m_shown.begin(), m_shown.end(), text.begin(), text.end());
    auto begin = oldMiddle - m_shown.begin();
    if (begin > 0 && m_shown[begin - 1].isHighSurrogate())
        --begin;
    const auto most = std::min(m_shown.size(), text.size()) - begin;
    qsizetype tail = 0;
    while (tail < most && m_shown[m_shown.size() - tail - 1] == text[text.size() - tail - 1])
        ++tail;
    if (tail > 0 && m_shown[m_shown.size() - tail].isLowSurrogate())
        --tail;

    Q_EMIT merging(static_cast<int>(begin));
    m_merging = true;
    QTextCursor cursor(m_document);
    cursor.setPosition(static_cast<int>(begin));
    cursor.setPosition(static_cast<int>(m_shown.size() - tail), QTextCursor::KeepAnchor);
    cursor.insertText(text.mid(begin, text.size() - tail - begin));
    m_merging = false;
    m_shown = std::move(text);
    Q_EMIT merged(static_cast<int>(begin));
}

// The save begins soon after the first letter that is not on its way to the disk, not after the
// last: who writes without a pause loses no more in a crash than others.
void NoteEditor::scheduleSave()
{
    ++m_changes;
    m_dirty = true;
    setSaved(false);
    m_edits.setPending(m_id, draft());
    if (!m_saveTimer.pending())
        m_saveTimer.start(saveDelay, [this] { save(); });
}

void NoteEditor::save()
{
    if (m_savingChange)
        return; // at its end the next one begins
    m_savingChange = m_changes;
    m_tasks.spawn(saveChange(m_changes));
}

Task<> NoteEditor::saveChange(unsigned change)
{
    const auto sent = m_text;
    const auto failure = co_await m_edits.save(m_id, draft());
    m_savingChange.reset();
    if (change != m_changes) {
        if (!m_saveTimer.pending())
            save();
        co_return;
    }
    if (failure)
        co_return; // it stays pending: the next letter, another editor or the quit tries again
    m_dirty = false;
    setSaved(true);
    const Note* const note = m_library.note(m_id);
    m_baseBody = note ? std::string(note->body) : sent;
    m_text = m_baseBody;
    showText();
}

void NoteEditor::setSaved(bool saved)
{
    if (std::exchange(m_saved, saved) != saved)
        Q_EMIT savedChanged();
}

} // namespace vesko
