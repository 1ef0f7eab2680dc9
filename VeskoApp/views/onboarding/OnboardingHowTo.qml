import QtQuick

// How to dictate.
Column {
    id: steps

    required property string gestureKey
    required property var shortcut
    required property var status

    spacing: 22

    Words {
        width: parent.width
        text: qsTranslate("Vesko", "How to dictate")
        font.pixelSize: Theme.title
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    Column {
        width: parent.width
        spacing: 14

        OnboardingCard {
            width: parent.width
            lead: 128
            keys: steps.gestureKey
            title: qsTranslate("Vesko", "Hold Fn and speak")
            text: qsTranslate("Vesko", "Release to finish. Vesko pastes into the field you started in.")
        }
        OnboardingCard {
            width: parent.width
            lead: 128
            keys: steps.gestureKey
            title: qsTranslate("Vesko", "Tap Fn for longer thoughts")
            text: qsTranslate("Vesko", "Recording keeps going hands-free. Tap Fn again to finish.")
        }
        OnboardingCard {
            width: parent.width
            lead: 128
            visible: steps.shortcut.offered
            keys: steps.shortcut.words
            title: qsTranslate("Vesko", "Or press %1").arg(steps.shortcut.words)
            text: qsTranslate("Vesko", "Works the same way when Fn is busy.")
        }
        Words {
            width: parent.width
            visible: text.length > 0
            text: steps.shortcut.refusal || steps.status.shortcutMessage
            color: Theme.alarm
            wrapMode: Text.Wrap
        }
        ShortcutField {
            visible: steps.shortcut.offered && (steps.status.shortcutMessage.length > 0 || steps.shortcut.listening)
            choice: steps.shortcut
        }
        OnboardingCard {
            width: parent.width
            lead: 128
            iconName: "microphone"
            title: qsTranslate("Vesko", "Click the floating circle")
            text: qsTranslate("Vesko", "It sits in the corner and shows when Vesko is listening.")
        }
        OnboardingCard {
            width: parent.width
            lead: 128
            iconName: "notes"
            title: qsTranslate("Vesko", "Keep notes in the library")
            text: qsTranslate("Vesko", "Record a voice note, edit the text, and group notes by project.")
        }
    }
}
