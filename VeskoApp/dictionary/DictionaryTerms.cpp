#include "VeskoApp/dictionary/DictionaryTerms.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

DictionaryTerms::DictionaryTerms(LibrarySession& library, const Preferences& preferences,
    InsertionReview& review, StatusLine& status)
    : m_library(library)
    , m_preferences(preferences)
    , m_status(status)
{
    connect(&preferences, &Preferences::changed, this, [this, &review] {
        if (m_preferences.learnCorrections.get())
            return;
        review.stop();
        setPending({});
    });
}

void DictionaryTerms::corrected(std::vector<DictionarySuggestion> corrections, bool sent)
{
    if (!m_preferences.learnCorrections.get())
        return;
    if (!sent)
        setPending(std::move(corrections));
    else if (m_library.ready() && !corrections.empty())
        m_tasks.spawn(learn(std::move(corrections)));
}

void DictionaryTerms::learnPendingCorrections()
{
    auto corrections = m_pending;
    setPending({});
    if (m_library.ready() && !corrections.empty())
        m_tasks.spawn(learn(std::move(corrections)));
}

Task<> DictionaryTerms::learn(std::vector<DictionarySuggestion> corrections)
{
    const auto added
        = co_await m_library.change([corrections = std::move(corrections)](LibraryStore& store) {
              return store.learnCorrections(corrections);
          });
    if (!added)
        m_status.report(added.error());
    else if (*added > 0)
        say(translated(
            L10N_KEY("Vesko", "Added %1 dictionary corrections. Review them in Dictionary."),
            *added));
}

void DictionaryTerms::save(DictionaryEntry entry, std::function<void()> onSaved)
{
    if (m_library.ready())
        m_tasks.spawn(store(std::move(entry), std::move(onSaved)));
}

Task<> DictionaryTerms::store(DictionaryEntry entry, std::function<void()> onSaved)
{
    const auto saved = co_await m_library.change(
        [entry = std::move(entry)](LibraryStore& store) { store.saveDictionaryEntry(entry); });
    if (!saved) {
        const auto reason = safeMessage(saved.error());
        m_status.setErrorMessage(reason);
        say(translated(reason));
        co_return;
    }
    say(translated(L10N_KEY("Vesko", "Dictionary saved")));
    if (onSaved)
        onSaved();
}

void DictionaryTerms::remove(const Uuid& id)
{
    m_library.apply([id](LibraryStore& store) { store.removeDictionaryEntry(id); });
}

void DictionaryTerms::setPending(std::vector<DictionarySuggestion> corrections)
{
    assign(*this, m_pending, std::move(corrections), &DictionaryTerms::pendingCorrectionsChanged);
}

void DictionaryTerms::say(const QString& message)
{
    assign(*this, m_message, message, &DictionaryTerms::messageChanged);
}

} // namespace vesko
