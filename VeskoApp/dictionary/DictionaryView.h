#pragma once

#include "VeskoApp/capture/Capture.h"
#include "VeskoApp/dictionary/DictionaryTerms.h"
#include "VeskoApp/dictionary/TermListModel.h"

#include <QObject>
#include <QVariant>

namespace vesko {

// What the dictionary window shows and does: the terms that a search finds, the form in which one
// is written, and the corrections that wait for the user's word. Main thread; what it is given must
// outlive it.
class DictionaryView : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* terms READ terms CONSTANT)
    Q_PROPERTY(QString countText READ countText NOTIFY termsChanged)
    // "title" and "text" while no term is listed, else nothing.
    Q_PROPERTY(QVariant emptyState READ emptyState NOTIFY termsChanged)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(QString original READ original WRITE setOriginal NOTIFY formChanged)
    Q_PROPERTY(QString replacement READ replacement WRITE setReplacement NOTIFY formChanged)
    // A term of the dictionary is being edited, not a new one written.
    Q_PROPERTY(bool editing READ editing NOTIFY formChanged)
    Q_PROPERTY(QString saveTitle READ saveTitle NOTIFY formChanged)
    Q_PROPERTY(bool canSave READ canSave NOTIFY formChanged)
    // What the banner says of corrections that wait; empty without any.
    Q_PROPERTY(QString pendingText READ pendingText NOTIFY pendingChanged)
    // What undo() would take back, for a while; empty for nothing.
    Q_PROPERTY(QString undoText READ undoText NOTIFY undoChanged)

public:
    DictionaryView(DictionaryTerms& dictionary, const LibrarySession& library,
        const Capture& capture, EventClock& clock);

    QObject* terms() { return &m_terms; }
    const TermListModel& termList() const { return m_terms; }
    QString countText() const;
    QVariant emptyState() const;
    const QString& query() const { return m_query; }
    void setQuery(const QString& query);
    const QString& original() const { return m_original; }
    void setOriginal(const QString& text);
    const QString& replacement() const { return m_replacement; }
    void setReplacement(const QString& text);
    bool editing() const { return m_editing.has_value(); }
    QString saveTitle() const;
    bool canSave() const;
    QString pendingText() const;
    QString undoText() const;

    // Saves what stands in the form, which is the user's own term from then on. The form is emptied
    // once it is saved, and kept if that fails.
    Q_INVOKABLE void save();
    Q_INVOKABLE void cancel();
    // On a listed term.
    Q_INVOKABLE void edit(const QString& id);
    Q_INVOKABLE void setEnabled(const QString& id, bool enabled);
    Q_INVOKABLE void remove(const QString& id);
    // Takes the term back that was removed a moment ago.
    Q_INVOKABLE void undo();

Q_SIGNALS:
    void termsChanged();
    void queryChanged();
    void formChanged();
    void pendingChanged();
    void undoChanged();

private:
    void setRemoved(std::optional<DictionaryEntry> term);
    void showTerms();
    void fill(std::optional<DictionaryEntry> editing);

    DictionaryTerms& m_dictionary;
    const LibrarySession& m_library;
    const Capture& m_capture;
    EventClock& m_clock;
    TermListModel m_terms;
    QString m_query;
    QString m_original;
    QString m_replacement;
    std::optional<DictionaryEntry> m_editing;
    std::optional<DictionaryEntry> m_removed; // a moment ago, here
    Timer m_removedEnd;
};

} // namespace vesko
