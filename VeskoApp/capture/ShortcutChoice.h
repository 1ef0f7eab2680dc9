#pragma once

#include "VeskoApp/preferences/Preferences.h"
#include "VeskoApp/status/StatusLine.h"

#include <QObject>

namespace vesko {

class Hotkeys;

// The shortcut that Preferences keep as this text.
KeyCombination shortcutFrom(const std::string& stored);

// The shortcut as the user sees it and chooses another. While it listens for one the present one is
// given back, so that it can be pressed too; what is chosen is stored only if it can be had. Main
// thread.
class ShortcutChoice : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString words READ words NOTIFY changed) // what is in force, such as "Ctrl+Alt+D"
    Q_PROPERTY(bool isDefault READ isDefault NOTIFY changed)
    Q_PROPERTY(QString defaultWords READ defaultWords CONSTANT)
    Q_PROPERTY(bool offered READ offered CONSTANT)
    Q_PROPERTY(bool listening READ listening NOTIFY changed)
    Q_PROPERTY(QString pressed READ pressed NOTIFY changed) // what is held while it listens
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed) // why the last choice is none, if so

public:
    // What it reaches; must outlive it.
    struct Neighbours {
        GlobalShortcut& shortcut;
        Hotkeys& hotkeys;
        Preferences& preferences;
        StatusLine& status;
        bool offered = true; // this session lets the program take a shortcut
    };

    explicit ShortcutChoice(const Neighbours& neighbours);

    KeyCombination combination() const;
    QString words() const;
    bool isDefault() const { return combination() == KeyCombination(); }
    QString defaultWords() const;
    bool offered() const { return m_to.offered; }
    bool listening() const { return m_listening; }
    // A press of it comes here.
    bool inForce() const;
    const QString& pressed() const { return m_pressed; }
    const QString& refusal() const { return m_refusal; }

    // Takes the shortcut, or takes it anew, and tells the user if it can't be had.
    void install();
    // The same for a warning of Hotkeys.
    void tell(const std::string& warning);
    // Tries again, if it could not be had: whoever had it may have ended.
    void retry();

    // The user wants to press another one.
    Q_INVOKABLE void listen();
    // A modifier went down or up: Qt's name of it, and the modifiers, with or without it.
    Q_INVOKABLE void hold(int key, int modifiers, bool down);
    // A key that is no modifier went down: Qt's name of it, the modifiers, and the keyboard's
    // number. Whether that was a choice, good or bad; else it is the form's.
    Q_INVOKABLE bool press(int key, int modifiers, quint32 scanCode);
    // Keeps what is in force.
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void chooseDefault();

Q_SIGNALS:
    void changed();

private:
    void endListening();
    void refuse(const QString& why);
    void choose(const KeyCombination& combination, const std::string& name);

    Neighbours m_to;
    bool m_listening = false;
    QString m_pressed;
    QString m_refusal;
};

} // namespace vesko
