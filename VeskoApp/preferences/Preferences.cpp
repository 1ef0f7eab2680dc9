#include "VeskoApp/preferences/Preferences.h"

#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/OpenRouterClient.h"

#include <algorithm>
#include <array>

namespace vesko {

namespace {

constexpr std::array<std::pair<GestureKey, std::string_view>, 6> gestureKeyNames{ {
    { GestureKey::fn, "fn" },
    { GestureKey::rightControl, "right_control" },
    { GestureKey::rightAlt, "right_alt" },
    { GestureKey::menu, "menu" },
    { GestureKey::pause, "pause" },
    { GestureKey::scrollLock, "scroll_lock" },
} };

} // namespace

Preferences::Preferences(SettingsStore& store, Keychain& keychain, LoginItem& loginItem)
    : m_store(store)
    , m_keychain(keychain)
    , m_loginItem(loginItem)
    , m_loginStatus(loginItem.status())
    , provider(*this, "provider", "openrouter")
    , keySource(*this, "keySource", "vesko")
    , allowCloudProcessing(*this, "allowCloudProcessing", false)
    , soundsEnabled(*this, "soundsEnabled", true)
    , learnCorrections(*this, "learnCorrections", true)
    , dictionaryEnabled(*this, "dictionaryEnabled", true)
    , sttModel(*this, "sttModel", std::string(OpenRouterClient::defaultSTTModel))
    , cleanupModel(*this, "cleanupModel", std::string(OpenRouterClient::defaultCleanupModel))
    , cleanupEnabled(*this, "cleanupEnabled", false)
    , language(*this, "language", "auto")
    , languageAnswered(*this, "languageAnswered", false)
    , translateTo(*this, "translateTo", "off")
    , fnEnabled(*this, "fnEnabled", true)
    , pasteEnabled(*this, "pasteEnabled", true)
    , returnClipboard(*this, "returnClipboard", false)
    , showFloating(*this, "showFloating", true)
    , gestureKeyName(*this, "gestureKey", "")
    , shortcut(*this, "shortcut", "")
    , shortcutKeyName(*this, "shortcutKeyName", "")
    , engine(*this, "engine", "pocketsphinx")
    , engineCommand(*this, "engineCommand", "")
    , engineCommandModel(*this, "engineCommandModel", "")
    , engineServer(*this, "engineServer", "")
    , engineServerModel(*this, "engineServerModel", "")
    , expectTerms(*this, "expectTerms", true)
    , removeRecordingsAfter(*this, "removeRecordingsAfter", "never")
    , emptyTrashAfter(*this, "emptyTrashAfter", "never")
    , notificationsShowText(*this, "notificationsShowText", false)
{
}

GestureKey Preferences::gestureKey(bool keyboardReportsFn) const
{
    const auto chosen = std::ranges::find(
        gestureKeyNames, gestureKeyName.get(), &decltype(gestureKeyNames)::value_type::second);
    if (chosen != gestureKeyNames.end())
        return chosen->first;
    return keyboardReportsFn ? GestureKey::fn : GestureKey::rightControl;
}

void Preferences::setGestureKey(GestureKey key)
{
    gestureKeyName.set(nameOf(key));
}

std::string Preferences::nameOf(GestureKey key)
{
    return std::string(
        std::ranges::find(gestureKeyNames, key, &decltype(gestureKeyNames)::value_type::first)
            ->second);
}

std::string Preferences::keySourceInForce() const
{
    return m_hasKey && !m_hasVeskoAccess ? "personal" : keySource.get();
}

std::string Preferences::keyAccount(const std::string& keySource)
{
    return keySource == "vesko" ? Keychain::veskoAccess : Keychain::personal;
}

Task<> Preferences::saveKey(std::string text)
{
    const auto typed = Secret::taken(text);
    const auto key = trimmed(typed);
    if (key.empty() || key.find_first_of("\n\r") != std::string_view::npos)
        throw VeskoError(VeskoError::missingKey);
    co_await m_keychain.save(key, Keychain::personal);
    m_hasKey = true;
    keySource.set("personal");
    Q_EMIT changed();
}

Task<> Preferences::removeKey()
{
    co_await m_keychain.remove(Keychain::personal);
    m_hasKey = false;
    Q_EMIT changed();
}

void Preferences::setLogin(bool on)
{
    if (on)
        m_loginItem.enable();
    else
        m_loginItem.disable();
    m_loginStatus = m_loginItem.status();
    Q_EMIT changed();
}

void Preferences::refresh()
{
    reread(provider);
    reread(keySource);
    m_loginStatus = m_loginItem.status();
    Q_EMIT changed();
    m_tasks.spawn(refreshKeys());
}

// A value that was never stored is written now, so that the file says what is in force.
void Preferences::reread(Setting<std::string>& setting)
{
    if (const auto stored = m_store.get<std::string>(setting.m_key))
        setting.set(*stored);
    else if (!setting.assumed())
        setting.set(setting.get());
}

Task<> Preferences::refreshKeys()
{
    m_hasVeskoAccess = co_await exists(Keychain::veskoAccess);
    m_hasKey = co_await exists(Keychain::personal);
    Q_EMIT changed();
}

// A secret store that can't be asked has no key to use; the run says so when it needs one.
Task<bool> Preferences::exists(std::string account)
{
    try {
        co_return co_await m_keychain.has(account);
    } catch (const KeychainFailure&) {
        co_return false;
    }
}

} // namespace vesko
