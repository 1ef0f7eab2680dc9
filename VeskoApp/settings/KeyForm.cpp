#include "VeskoApp/settings/KeyForm.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/library/VeskoError.h"

#include <utility>

namespace vesko {

KeyForm::KeyForm(
    Preferences& preferences, StatusLine& status, std::function<void(const QString&)> onNotice)
    : m_preferences(preferences)
    , m_status(status)
    , m_onNotice(std::move(onNotice))
{
    connect(&m_preferences, &Preferences::changed, this, &KeyForm::changed);
}

QString KeyForm::status() const
{
    return hasKey() ? translated(L10N_KEY("Vesko", "Saved in Keychain"))
                    : translated(L10N_KEY("Vesko", "No key saved"));
}

QString KeyForm::prompt() const
{
    return hasKey() ? translated(L10N_KEY("Vesko", "Enter a replacement key"))
                    : translated(L10N_KEY("Vesko", "Your personal API key"));
}

void KeyForm::save()
{
    m_tasks.spawn(saved(m_draft.toStdString()));
}

Task<> KeyForm::saved(std::string key)
{
    try {
        co_await m_preferences.saveKey(std::move(key));
        clearDraft();
        for (const auto* settled : { KeychainFailure().errorDescription(),
                 KeychainFailure(KeychainFailure::absent).errorDescription(),
                 VeskoError(VeskoError::missingKey).errorDescription() })
            m_status.withdraw(settled);
        m_onNotice(translated(L10N_KEY("Vesko", "Key saved in Keychain")));
    } catch (const std::exception&) {
        m_onNotice({});
        m_status.report(std::current_exception());
    }
}

void KeyForm::remove()
{
    m_tasks.spawn(removed());
}

Task<> KeyForm::removed()
{
    try {
        co_await m_preferences.removeKey();
        clearDraft();
        m_onNotice(translated(L10N_KEY("Vesko", "Key removed")));
    } catch (const std::exception&) {
        m_onNotice({});
        m_status.report(std::current_exception());
    }
}

void KeyForm::clearDraft()
{
    m_draft.clear();
    Q_EMIT draftChanged();
}

} // namespace vesko
