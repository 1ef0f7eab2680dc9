#include "VeskoApp/capture/ShortcutChoice.h"

#include "VeskoApp/capture/Hotkeys.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QKeySequence>

#include <array>
#include <string_view>
#include <utility>

namespace vesko {

namespace {

struct ModifierOfShortcut {
    bool KeyCombination::* field;
    Qt::KeyboardModifier key;
    std::string_view stored;
    const char* name;
};

// In the order in which they are said.
constexpr std::array<ModifierOfShortcut, 4> modifiersOfShortcut{ {
    { &KeyCombination::super, Qt::MetaModifier, "super", L10N_KEY("Vesko", "Super") },
    { &KeyCombination::control, Qt::ControlModifier, "control", L10N_KEY("Vesko", "Ctrl") },
    { &KeyCombination::alt, Qt::AltModifier, "alt", L10N_KEY("Vesko", "Alt") },
    { &KeyCombination::shift, Qt::ShiftModifier, "shift", L10N_KEY("Vesko", "Shift") },
} };

KeyCombination withModifiers(Qt::KeyboardModifiers held)
{
    KeyCombination combination;
    for (const auto& modifier : modifiersOfShortcut)
        combination.*modifier.field = held.testFlag(modifier.key);
    return combination;
}

QString modifierWords(const KeyCombination& combination)
{
    QString words;
    for (const auto& modifier : modifiersOfShortcut)
        if (combination.*modifier.field)
            words += translated(modifier.name) + QLatin1Char('+');
    return words;
}

std::string storedForm(const KeyCombination& combination)
{
    std::string text;
    for (const auto& modifier : modifiersOfShortcut)
        if (combination.*modifier.field)
            text += std::string(modifier.stored) + "+";
    return text + combination.key;
}

KeyCombination fromStored(std::string_view text)
{
    KeyCombination combination{ .shift = false, .super = false };
    for (const auto& modifier : modifiersOfShortcut)
        if (text.starts_with(modifier.stored)
            && text.substr(modifier.stored.size()).starts_with('+')) {
            combination.*modifier.field = true;
            text.remove_prefix(modifier.stored.size() + 1);
        }
    combination.key = text;
    return combination;
}

Qt::KeyboardModifier modifierOf(int key)
{
    switch (key) {
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
        return Qt::MetaModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    default:
        return Qt::NoModifier;
    }
}

bool isFunctionKey(int key)
{
    return key >= Qt::Key_F1 && key <= Qt::Key_F35;
}

// Held with Control they paste, and what Vesko sends would come back to it.
bool wouldCatchThePaste(const KeyCombination& combination, const std::string& name)
{
    return combination.control && !combination.alt && !combination.super && name == "V";
}

} // namespace

KeyCombination shortcutFrom(const std::string& stored)
{
    return stored.empty() ? KeyCombination() : fromStored(stored);
}

ShortcutChoice::ShortcutChoice(const Neighbours& neighbours)
    : m_to(neighbours)
{
}

KeyCombination ShortcutChoice::combination() const
{
    return shortcutFrom(m_to.preferences.shortcut.get());
}

bool ShortcutChoice::inForce() const
{
    return m_to.offered && !m_listening && m_to.status.shortcutMessage().empty();
}

QString ShortcutChoice::words() const
{
    if (isDefault())
        return defaultWords();
    return modifierWords(combination())
        + QString::fromStdString(m_to.preferences.shortcutKeyName.get());
}

QString ShortcutChoice::defaultWords() const
{
    return modifierWords(KeyCombination()) + translated(L10N_KEY("Vesko", "Space"));
}

void ShortcutChoice::install()
{
    if (!m_to.offered)
        return;
    tell(m_to.hotkeys.installShortcut());
}

void ShortcutChoice::tell(const std::string& warning)
{
    m_to.status.setShortcutMessage(
        warning.empty() ? warning : translated(warning).arg(words()).toStdString());
}

void ShortcutChoice::retry()
{
    if (!m_listening && !m_to.status.shortcutMessage().empty())
        install();
}

void ShortcutChoice::listen()
{
    if (!m_to.offered || std::exchange(m_listening, true))
        return;
    m_pressed.clear();
    m_refusal.clear();
    m_to.shortcut.remove();
    Q_EMIT changed();
}

void ShortcutChoice::hold(int key, int modifiers, bool down)
{
    if (!m_listening)
        return;
    Qt::KeyboardModifiers held(modifiers);
    held.setFlag(modifierOf(key), down);
    m_pressed = modifierWords(withModifiers(held));
    Q_EMIT changed();
}

bool ShortcutChoice::press(int key, int modifiers, quint32 scanCode)
{
    if (!m_listening)
        return false;
    KeyCombination combination = withModifiers(Qt::KeyboardModifiers(modifiers));
    const bool combines = combination.control || combination.alt || combination.super;
    if (!combines && (key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape)) {
        cancel();
        return key == Qt::Key_Escape;
    }
    const auto place = m_to.shortcut.keyAt(scanCode);
    if (!place) {
        refuse(translated(L10N_KEY("Vesko", "No shortcut can be made with this key.")));
        return true;
    }
    combination.key = place->place;
    const std::string name = !place->name.empty()
        ? place->name
        : QKeySequence(key).toString(QKeySequence::PortableText).toStdString();
    m_pressed = modifierWords(combination) + QString::fromStdString(name);
    if (!combines && !isFunctionKey(key))
        refuse(
            translated(L10N_KEY("Vesko", "%1 is typed with. A shortcut needs Ctrl, Alt or Super."))
                .arg(m_pressed));
    else if (wouldCatchThePaste(combination, name))
        refuse(translated(
            L10N_KEY(
                "Vesko", "%1 is what text is pasted with, by Vesko too. Choose another shortcut."))
                .arg(m_pressed));
    else
        choose(combination, name);
    return true;
}

void ShortcutChoice::cancel()
{
    if (!m_listening)
        return;
    endListening();
    install();
    Q_EMIT changed();
}

void ShortcutChoice::chooseDefault()
{
    m_pressed = defaultWords();
    choose({}, {});
}

void ShortcutChoice::choose(const KeyCombination& combination, const std::string& name)
{
    const auto before
        = std::pair(m_to.preferences.shortcut.get(), m_to.preferences.shortcutKeyName.get());
    const auto take = [this](const std::string& stored, const std::string& keyName) {
        m_to.preferences.shortcut.set(stored);
        m_to.preferences.shortcutKeyName.set(keyName);
        return m_to.hotkeys.installShortcut();
    };
    const bool isDefaultOne = combination == KeyCombination();
    const auto warning = take(isDefaultOne ? std::string() : storedForm(combination),
        isDefaultOne ? std::string() : name);
    if (!warning.empty()) {
        take(before.first, before.second);
        refuse(translated(
            L10N_KEY("Vesko", "%1 can't be had: another program has it. Choose another shortcut."))
                .arg(m_pressed));
        return;
    }
    tell(warning);
    m_refusal.clear();
    endListening();
    Q_EMIT changed();
}

// It goes on listening, with nothing installed.
void ShortcutChoice::refuse(const QString& why)
{
    m_refusal = why;
    if (m_listening)
        m_to.shortcut.remove();
    else
        install();
    Q_EMIT changed();
}

void ShortcutChoice::endListening()
{
    m_listening = false;
    m_pressed.clear();
}

} // namespace vesko
