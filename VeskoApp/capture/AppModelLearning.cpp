// What becomes of corrections, and the terms of the dictionary.

#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/capture/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

void AppModel::corrected(std::vector<DictionarySuggestion> corrections, bool sent)
{
    if (!m_preferences.learnCorrections.get())
        return;
    if (!sent)
        setPendingCorrections(std::move(corrections));
    else if (m_libraryReady && !corrections.empty())
        m_tasks.spawn(learn(std::move(corrections)));
}

void AppModel::learnPendingCorrections()
{
    auto corrections = m_pendingCorrections;
    setPendingCorrections({});
    if (m_libraryReady && !corrections.empty())
        m_tasks.spawn(learn(std::move(corrections)));
}

void AppModel::stopLearning()
{
    m_insertionReview.stop();
    setPendingCorrections({});
}

void AppModel::dismissPendingCorrections()
{
    setPendingCorrections({});
}

Task<> AppModel::learn(std::vector<DictionarySuggestion> corrections)
{
    std::size_t added = 0;
    try {
        added = co_await m_store.run([corrections = std::move(corrections)](LibraryStore& store) {
            return store.learnCorrections(corrections);
        });
    } catch (const std::exception&) {
        report(std::current_exception());
        co_return;
    }
    co_await refreshLibrary();
    if (added > 0)
        assign(m_dictionaryMessage,
            translated(
                L10N_KEY("Vesko", "Added %1 dictionary corrections. Review them in Dictionary."),
                added),
            &AppModel::dictionaryMessageChanged);
}

void AppModel::saveTerm(DictionaryEntry entry, std::function<void()> onSaved)
{
    if (m_libraryReady)
        m_tasks.spawn(save(std::move(entry), std::move(onSaved)));
}

Task<> AppModel::save(DictionaryEntry entry, std::function<void()> onSaved)
{
    std::string outcome = L10N_KEY("Vesko", "Dictionary saved");
    bool saved = true;
    try {
        co_await m_store.run([entry](LibraryStore& store) { store.saveDictionaryEntry(entry); });
    } catch (const std::exception&) {
        outcome = safeMessage(std::current_exception());
        setErrorMessage(outcome);
        saved = false;
    }
    co_await refreshLibrary();
    assign(m_dictionaryMessage, translated(outcome), &AppModel::dictionaryMessageChanged);
    if (saved && onSaved)
        onSaved();
}

void AppModel::removeTerm(const Uuid& id)
{
    m_tasks.spawn(change([id](LibraryStore& store) { store.removeDictionaryEntry(id); }));
}

void AppModel::setPendingCorrections(std::vector<DictionarySuggestion> corrections)
{
    assign(m_pendingCorrections, std::move(corrections), &AppModel::pendingCorrectionsChanged);
}

} // namespace vesko
