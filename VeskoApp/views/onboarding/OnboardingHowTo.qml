import QtQuick

// How to dictate.
Column {
    id: steps

    required property string gestureKey // empty where none can be used
    required property var shortcut
    required property var desktopKeys
    required property var status
    readonly property string keys: shortcut.offered ? shortcut.words : desktopKeys.keys

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
            visible: steps.gestureKey.length > 0
            keys: steps.gestureKey
            title: qsTranslate("Vesko", "Hold Fn and speak")
            text: qsTranslate("Vesko", "Release to finish. Vesko pastes into the field you started in.")
        }
        OnboardingCard {
            width: parent.width
            lead: 128
            visible: steps.gestureKey.length > 0
            keys: steps.gestureKey
            title: qsTranslate("Vesko", "Tap Fn for longer thoughts")
            text: qsTranslate("Vesko", "Recording keeps going hands-free. Tap Fn again to finish.")
        }
        OnboardingCard {
            width: parent.width
            lead: 128
            visible: steps.keys.length > 0
            keys: steps.keys
            title: (steps.gestureKey ? qsTranslate("Vesko", "Or press %1") : qsTranslate("Vesko", "Press %1 and speak")).arg(steps.keys)
            text: steps.gestureKey ? qsTranslate("Vesko", "Works the same way when Fn is busy.") : qsTranslate("Vesko", "Press again to finish. Vesko pastes into the field you started in.")
        }
        Words {
            width: parent.width
            visible: text.length > 0
            text: steps.desktopKeys.refusal || steps.shortcut.refusal || steps.status.shortcutMessage
            color: steps.shortcut.offered || steps.desktopKeys.refusal ? Theme.alarm : Theme.text
            wrapMode: Text.Wrap
        }
        PushButton {
            visible: steps.desktopKeys.offered && !steps.desktopKeys.keys
            text: qsTranslate("Vesko", "Add %1").arg(steps.desktopKeys.suggestion)
            onClicked: steps.desktopKeys.add()
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
