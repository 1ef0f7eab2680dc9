#include "VeskoApp/wording/SessionWords.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

namespace {

QString nameOf(const SessionOffer& session)
{
    return session.desktop.empty() ? translated(L10N_KEY("Vesko", "this desktop"))
                                   : QString::fromStdString(session.desktop);
}

// A sentence may begin with the name of a desktop that has none.
QString sentence(const char* key, const SessionOffer& session)
{
    QString text = translated(key).arg(nameOf(session));
    if (session.desktop.empty())
        text[0] = text[0].toUpper();
    return text;
}

} // namespace

QString shortcutAdvice(const SessionOffer& session)
{
    if (session.shortcut == SessionOffer::Shortcut::own)
        return {};
    if (session.keepsShortcuts)
        return sentence(L10N_KEY("Vesko",
                            "%1 gives programs no shortcuts of their own, but Vesko can add one to "
                            "its settings: see “Capture and insertion” in the settings of Vesko."),
            session);
    return sentence(L10N_KEY("Vesko",
                        "%1 gives programs no shortcuts of their own. In its configuration, let "
                        "keys of your choice run “vesko --toggle”."),
        session);
}

QString keysAdvice(const SessionOffer& session)
{
    if (session.allKeys)
        return {};
    return sentence(
        L10N_KEY("Vesko", "%1 shows no program the keys that are pressed in another one."),
        session);
}

QString learningAdvice(const SessionOffer& session)
{
    if (session.allKeys)
        return {};
    return sentence(L10N_KEY("Vesko",
                        "%1 does not show Vesko when you press Return, so your corrections wait "
                        "for your review."),
        session);
}

QString pasteAdvice(const SessionOffer& session)
{
    if (!session.copies)
        return sentence(L10N_KEY("Vesko",
                            "Without Xwayland %1 lets Vesko copy and paste nothing while another "
                            "program is in use. The text is in your note."),
            session);
    if (session.pastes && session.asksToPaste)
        return sentence(L10N_KEY("Vesko",
                            "When you dictate into another program, %1 asks whether Vesko may "
                            "control the keyboard: once, or each time if it does not remember your "
                            "answer. Allow it in the window that opens. Vesko presses the keys "
                            "that paste, and no others."),
            session);
    if (session.pastes)
        return {};
    return sentence(L10N_KEY("Vesko",
                        "On %1 Vesko can't paste into other programs. Text is copied, and you "
                        "paste it yourself."),
        session);
}

} // namespace vesko
