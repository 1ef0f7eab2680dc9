#pragma once

#include <QObject>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/insertion/InsertionReview.h"
#include "VeskoApp/library/LibrarySession.h"
#include "VeskoApp/preferences/Preferences.h"

#include <functional>
#include <vector>

namespace vesko {

// The terms of the personal dictionary: what the user writes into it, and what it learns from the
// corrections that a review saw, at once or at the user's word. Main thread.
class DictionaryTerms : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)

public:
    DictionaryTerms(LibrarySession& library, const Preferences& preferences,
        InsertionReview& review, StatusLine& status);

    // Adds a term or replaces it; `onSaved` is called only if that went well. The outcome stands in
    // the dictionary's line.
    void save(DictionaryEntry entry, std::function<void()> onSaved);
    void remove(const Uuid& id);

    // What the user corrected in a pasted text: learned if that was seen to be sent, else left to
    // the user.
    void corrected(std::vector<DictionarySuggestion> corrections, bool sent);
    const std::vector<DictionarySuggestion>& pendingCorrections() const { return m_pending; }
    // Takes the corrections that wait into the dictionary.
    Q_INVOKABLE void learnPendingCorrections();
    // Lets them be.
    Q_INVOKABLE void dismissPendingCorrections() { setPending({}); }

    // The dictionary's line, as the user reads it.
    const QString& message() const { return m_message; }
    void say(const QString& message);

Q_SIGNALS:
    void messageChanged();
    void pendingCorrectionsChanged();

private:
    Task<> store(DictionaryEntry entry, std::function<void()> onSaved);
    Task<> learn(std::vector<DictionarySuggestion> corrections);
    void setPending(std::vector<DictionarySuggestion> corrections);

    LibrarySession& m_library;
    const Preferences& m_preferences;
    StatusLine& m_status;
    QString m_message;
    std::vector<DictionarySuggestion> m_pending;
    TaskScope m_tasks;
};

} // namespace vesko
