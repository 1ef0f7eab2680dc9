#include "VeskoApp/dictionary/DictionaryView.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <QPointer>

#include <algorithm>
#include <string>
#include <utility>

namespace vesko {

namespace {

constexpr double undoIsOffered = 10; // seconds

} // namespace

DictionaryView::DictionaryView(DictionaryTerms& dictionary, const LibrarySession& library,
    const Capture& capture, EventClock& clock)
    : m_dictionary(dictionary)
    , m_library(library)
    , m_capture(capture)
    , m_clock(clock)
    , m_removedEnd(clock)
{
    connect(&library, &LibrarySession::changed, this, &DictionaryView::showTerms);
    for (const auto changed : { &LibrarySession::readyChanged, &LibrarySession::openingChanged })
        connect(&library, changed, this, [this] {
            Q_EMIT termsChanged();
            Q_EMIT formChanged();
        });
    connect(&dictionary, &DictionaryTerms::pendingCorrectionsChanged, this,
        &DictionaryView::pendingChanged);
    showTerms();
}

void DictionaryView::showTerms()
{
    m_terms.setTerms(m_library.contents().terms(m_query.toStdString()));
    Q_EMIT termsChanged();
    Q_EMIT undoChanged();
}

QString DictionaryView::countText() const
{
    if (!m_library.ready())
        return m_library.opening() ? m_capture.phaseTitle() : QString();
    const auto count = static_cast<std::size_t>(m_terms.rowCount());
    return count == 1 ? translated(L10N_KEY("Vesko", "1 term"))
                      : translated(L10N_KEY("Vesko", "%1 terms"), count);
}

QVariant DictionaryView::emptyState() const
{
    if (m_terms.rowCount() > 0 || !m_library.ready())
        return {};
    const auto words = [](const char* title, const char* text) {
        return QVariantMap{ { QStringLiteral("title"), translated(title) },
            { QStringLiteral("text"), translated(text) } };
    };
    if (!m_query.isEmpty())
        return words(
            L10N_KEY("Vesko", "No matching terms"), L10N_KEY("Vesko", "Try another search."));
    return words(L10N_KEY("Vesko", "Your personal dictionary"),
        L10N_KEY("Vesko",
            "Add names, product terms and frequent corrections. Similar spelling fixes can be "
            "learned after you edit and send a pasted dictation."));
}

void DictionaryView::setQuery(const QString& query)
{
    if (m_query == query)
        return;
    m_query = query;
    Q_EMIT queryChanged();
    showTerms();
}

void DictionaryView::setOriginal(const QString& text)
{
    m_original = text;
    Q_EMIT formChanged();
}

void DictionaryView::setReplacement(const QString& text)
{
    m_replacement = text;
    Q_EMIT formChanged();
}

QString DictionaryView::saveTitle() const
{
    return editing() ? translated(L10N_KEY("Vesko", "Save term"))
                     : translated(L10N_KEY("Vesko", "Add term"));
}

bool DictionaryView::canSave() const
{
    const auto texts = std::pair(m_original.toStdString(), m_replacement.toStdString());
    const auto original = trimmed(texts.first);
    const auto replacement = trimmed(texts.second);
    return m_library.ready() && !original.empty() && !replacement.empty()
        && !sameText(original, replacement);
}

QString DictionaryView::pendingText() const
{
    const auto count = m_dictionary.pendingCorrections().size();
    if (count == 0)
        return {};
    return translated(L10N_KEY("Vesko", "Last edited paste: %1 word corrections"), count);
}

void DictionaryView::save()
{
    if (!canSave())
        return;
    DictionaryEntry entry;
    if (m_editing) {
        entry = *m_editing;
    } else {
        entry.id = Uuid::random();
        entry.createdAt = m_clock.now();
    }
    entry.original = m_original.toStdString();
    entry.replacement = m_replacement.toStdString();
    entry.source = DictionaryEntry::Source::manual;
    m_dictionary.save(std::move(entry), [self = QPointer(this)] {
        if (self)
            self->cancel();
    });
}

void DictionaryView::cancel()
{
    fill(std::nullopt);
}

void DictionaryView::edit(const QString& id)
{
    if (const auto* const term = m_terms.find(id))
        fill(*term);
}

void DictionaryView::fill(std::optional<DictionaryEntry> editing)
{
    m_editing = std::move(editing);
    m_original = m_editing ? QString::fromStdString(m_editing->original) : QString();
    m_replacement = m_editing ? QString::fromStdString(m_editing->replacement) : QString();
    Q_EMIT formChanged();
}

void DictionaryView::setEnabled(const QString& id, bool enabled)
{
    const auto* const term = m_terms.find(id);
    if (!term)
        return;
    DictionaryEntry changed = *term;
    changed.enabled = enabled;
    m_dictionary.save(std::move(changed), {});
}

void DictionaryView::remove(const QString& id)
{
    const auto* const found = m_terms.find(id);
    if (!found)
        return;
    const auto term = *found;
    m_dictionary.remove(term.id);
    setRemoved(term);
}

void DictionaryView::undo()
{
    if (!m_removed)
        return;
    m_dictionary.save(*m_removed, {});
    setRemoved(std::nullopt);
}

QString DictionaryView::undoText() const
{
    const auto& terms = m_library.contents().dictionary;
    if (!m_removed || std::ranges::find(terms, m_removed->id, &DictionaryEntry::id) != terms.end())
        return {};
    return translated(L10N_KEY("Vesko", "Removed “%1”"))
        .arg(QString::fromStdString(m_removed->original));
}

void DictionaryView::setRemoved(std::optional<DictionaryEntry> term)
{
    m_removed = std::move(term);
    m_removedEnd.cancel();
    if (m_removed)
        m_removedEnd.start(undoIsOffered, [this] { setRemoved(std::nullopt); });
    Q_EMIT undoChanged();
}

} // namespace vesko
