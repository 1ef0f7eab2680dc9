#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/KeyInput.h"
#include "VeskoApp/platform/LoginItem.h"
#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoApp/preferences/Keychain.h"

#include <QObject>

namespace vesko {

// Every setting of the user, read when it is made and written through at each assignment, with
// what the login items say, and the secret store once it has been asked. The keys themselves are
// never held here. Main thread.
class Preferences : public QObject {
    Q_OBJECT

public:
    // One persisted setting. A stored value of another kind counts as none.
    template <class T>
    class Setting {
    public:
        Setting(Preferences& owner, std::string key, T fallback)
            : m_owner(owner)
            , m_key(std::move(key))
            , m_value(owner.m_store.get<T>(m_key).value_or(std::move(fallback)))
        {
        }
        const T& get() const { return m_assumed ? *m_assumed : m_value; }
        // Writes an equal value too, but tells only of a change.
        void set(T value)
        {
            const bool changes = value != get();
            m_value = std::move(value);
            m_assumed.reset();
            m_owner.m_store.set(m_key, SettingValue{ m_value });
            if (changes)
                Q_EMIT m_owner.changed();
        }

        // What is in force, without being written, until something is set or nothing is assumed.
        void assume(std::optional<T> value)
        {
            m_assumed = std::move(value);
            Q_EMIT m_owner.changed();
        }
        bool assumed() const { return m_assumed.has_value(); }

    private:
        friend class Preferences;
        Preferences& m_owner;
        std::string m_key;
        T m_value;
        std::optional<T> m_assumed;
    };

    Preferences(SettingsStore& store, Keychain& keychain, LoginItem& loginItem);

private:
    // Before the settings, which read from it as they are made.
    SettingsStore& m_store;
    Keychain& m_keychain;
    LoginItem& m_loginItem;
    LoginStatus m_loginStatus;

public:
    Setting<std::string> provider; // "apple" is on-device speech, everything else OpenRouter
    Setting<std::string> keySource; // "vesko" or, whatever else it says, the personal key
    Setting<bool> allowCloudProcessing; // kept for older settings; nothing asks for it
    Setting<bool> soundsEnabled;
    Setting<bool> learnCorrections;
    Setting<bool> dictionaryEnabled;
    Setting<std::string> sttModel;
    Setting<std::string> cleanupModel;
    Setting<bool> cleanupEnabled;
    Setting<std::string> language; // a tag, or "auto"
    Setting<bool> languageAnswered;
    Setting<std::string> translateTo; // a tag, or "off"
    Setting<bool> fnEnabled;
    Setting<bool> pasteEnabled;
    Setting<bool> returnClipboard; // what it held before a paste
    Setting<bool> showFloating;
    Setting<std::string> gestureKeyName; // empty until the user picks one
    Setting<std::string> shortcut; // as ShortcutChoice writes it; empty for the default
    Setting<std::string> shortcutKeyName; // what stands on its key
    // What recognises speech on this machine: an engine's id, "command" or "server".
    Setting<std::string> engine;
    Setting<std::string> engineCommand; // a line of words, as in a shell
    Setting<std::string> engineCommandModel;
    Setting<std::string> engineServer; // its address
    Setting<std::string> engineServerModel;
    Setting<bool> expectTerms; // the dictionary's terms are told to an engine beforehand
    Setting<std::string> removeRecordingsAfter; // days, or "never"
    Setting<std::string> emptyTrashAfter; // days, or "never"
    Setting<bool> notificationsShowText;

    // The key of the gesture: the user's choice, else Fn where the keyboard reports it, else Right
    // Control.
    GestureKey gestureKey(bool keyboardReportsFn) const;
    void setGestureKey(GestureKey key);
    // What the setting says for that key.
    static std::string nameOf(GestureKey key);

    // Whether a personal key, or one of Vesko's own, exists and can be read: false until the secret
    // store has been asked.
    bool hasKey() const { return m_hasKey; }
    bool hasVeskoAccess() const { return m_hasVeskoAccess; }
    LoginStatus loginStatus() const { return m_loginStatus; }
    // The key source that a request takes: the user's choice, unless it is known that its key isn't
    // there and the other one is. What is stored stays.
    std::string keySourceInForce() const;

    // The account whose key an OpenRouter request takes under this key source.
    static std::string keyAccount(const std::string& keySource);

    // Trims and stores the user's key and makes it the one in use. VeskoError::missingKey when
    // nothing is left or a line break stands inside; KeychainFailure; both change nothing.
    Task<> saveKey(std::string text);
    // Leaves the key source as it is.
    Task<> removeKey();
    // Throws std::system_error and then changes nothing.
    void setLogin(bool on);

    // Takes in what may have been changed behind the program's back: the key installer, another
    // program of the desktop. The key facts follow when the secret store has answered.
    void refresh();
    // Asks the secret store which keys there are.
    Task<> refreshKeys();

Q_SIGNALS:
    void changed();

private:
    Task<bool> exists(std::string account);
    void reread(Setting<std::string>& setting);

    bool m_hasVeskoAccess = false;
    bool m_hasKey = false; // known after the other
    TaskScope m_tasks;
};

} // namespace vesko
