#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/SpeechEngines.h"
#include "VeskoApp/preferences/Preferences.h"

#include <QObject>

#include <vector>

namespace vesko {

// Keeps in use what the settings name for speech on this machine. The user's choice is never
// replaced by another: where it isn't there, nothing is recognised. Main thread.
class EngineSelection : public QObject {
    Q_OBJECT

public:
    EngineSelection(SpeechEngines& engines, Preferences& preferences, Keychain& keychain);

    // What the settings name, without the key of a server.
    static EngineChoice choiceOf(const Preferences& preferences);
    // The same as a record names it, whether it is there or not: "whisper.cpp/base".
    std::string named() const;
    // Whether the engine of the settings is in use now.
    bool inUse() const { return m_isThere && !m_applying; }
    // The same, as soon as it is known.
    Task<bool> isThere();
    // And tries again to put it in use where it wasn't there.
    Task<bool> lookAgain();
    // Makes the best engine that speaks the language the user's choice; nothing if none does.
    Task<> chooseBest(std::string language);
    // The secret store has another key for the server.
    void keyChanged() { applyAgain(); }
    // Puts another engine in use for a while, until giveBack(); false if it isn't there.
    Task<bool> lend(std::string id);
    void giveBack() { applyAgain(); }

Q_SIGNALS:
    void settled(); // what the settings name is in use, or isn't there

private:
    void revise();
    void applyAgain();
    Task<> apply();
    Task<bool> putInUse(EngineChoice choice);

    SpeechEngines& m_engines;
    Preferences& m_preferences;
    Keychain& m_keychain;
    EngineChoice m_seen; // of the settings, without the key
    bool m_isThere = true; // as of the last attempt
    bool m_applying = false;
    bool m_again = false; // the settings have changed meanwhile
    std::vector<Eventual<std::monostate>> m_waiting;
    TaskScope m_tasks;
};

} // namespace vesko
