import QtQuick

// How a dictation is started, what it sounds like, and where its text goes.
Section {
    id: section

    required property var delegate
    required property var status
    required property var preferences
    readonly property var keys: section.delegate.desktopKeys

    title: qsTranslate("Vesko", "Capture and insertion")

    SettingLine {
        width: parent.width
        name: qsTranslate("Vesko", "Global shortcut")

        ShortcutField {
            visible: !section.preferences.shortcutAdvice
            choice: section.delegate.shortcut
        }
        PushButton {
            visible: section.keys.offered
            text: section.keys.keys ? qsTranslate("Vesko", "Remove %1").arg(section.keys.keys) : qsTranslate("Vesko", "Add %1").arg(section.keys.suggestion)
            onClicked: section.keys.keys ? section.keys.remove() : section.keys.add()
        }
    }
    SettingNote {
        width: parent.width
        text: section.keys.refusal || (section.keys.keys ? "" : section.preferences.shortcutAdvice) || section.delegate.shortcut.refusal || section.status.shortcutMessage
        color: section.preferences.shortcutAdvice ? Theme.quiet : Theme.alarm
    }
    // To be copied, so it is no note.
    TextEdit {
        width: parent.width
        visible: text.length > 0
        text: section.preferences.shortcutLines
        color: Theme.text
        font.family: "monospace"
        font.pixelSize: Theme.small
        wrapMode: TextEdit.Wrap
        readOnly: true
        selectByMouse: true
        Accessible.name: section.preferences.shortcutAdvice
    }
    SettingSwitch {
        width: parent.width
        visible: !section.preferences.gestureAdvice
        text: qsTranslate("Vesko", "Also use Fn / Globe to start and stop")
        note: fnNote.text
        value: section.preferences.fnEnabled
        onSwitched: on => section.preferences.fnEnabled = on
    }
    SettingPicker {
        width: parent.width
        visible: section.preferences.fnEnabled && choices.length > 0
        name: qsTranslate("Vesko", "Dictation key")
        choices: section.preferences.gestureKeys
        value: section.preferences.gestureKey
        onChosen: tag => section.preferences.gestureKey = tag
    }
    SettingNote {
        id: fnNote

        width: parent.width
        text: section.preferences.gestureAdvice || qsTranslate("Vesko", "Fn starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Fn combinations do not send audio for transcription. Set Fn/Globe to Do Nothing in System Settings > Keyboard if macOS opens its own dictation or emoji picker.")
    }
    SettingSwitch {
        width: parent.width
        text: qsTranslate("Vesko", "Show floating capture button")
        note: floatingNote.text
        value: section.preferences.showFloating
        onSwitched: on => section.preferences.showFloating = on
    }
    SettingNote {
        id: floatingNote

        width: parent.width
        text: qsTranslate("Vesko", "Click it to record. Drag it to move it; a drag never starts a recording. Right-click it for the Vesko menu.")
    }
    SettingNote {
        width: parent.width
        visible: section.delegate.statusIconHidden && section.preferences.showFloating
        text: qsTranslate("Vesko", "The Vesko icon is hidden behind the camera area of the menu bar. Hold Command and drag menu bar icons to make room, or right-click the floating button for the same menu.")
    }
    SettingSwitch {
        width: parent.width
        text: qsTranslate("Vesko", "Play sounds when recording starts and stops")
        value: section.preferences.soundsEnabled
        onSwitched: on => section.preferences.soundsEnabled = on
    }
    Flow {
        width: parent.width
        spacing: Theme.space

        PushButton {
            text: qsTranslate("Vesko", "Preview start sound")
            iconName: "play"
            onClicked: section.preferences.previewStartSound()
        }
        PushButton {
            text: qsTranslate("Vesko", "Preview stop sound")
            iconName: "play"
            onClicked: section.preferences.previewStopSound()
        }
    }
    SettingSwitch {
        width: parent.width
        text: qsTranslate("Vesko", "Paste dictation into the original field")
        note: pasteNote.text
        value: section.preferences.pasteEnabled
        onSwitched: on => section.preferences.pasteEnabled = on
    }
    SettingSwitch {
        width: parent.width
        visible: section.preferences.pasteEnabled
        text: qsTranslate("Vesko", "Give the clipboard back after a paste")
        note: returnNote.text
        value: section.preferences.returnClipboard
        onSwitched: on => section.preferences.returnClipboard = on
    }
    SettingNote {
        id: returnNote

        width: parent.width
        visible: section.preferences.pasteEnabled
        text: qsTranslate("Vesko", "What you had copied before, up to 16 MB, is there again once the field shows the dictated text. Where that can't be seen, the dictated text stays on the clipboard.")
    }
    SettingNote {
        width: parent.width
        text: section.preferences.pasteAdvice
    }
    SettingNote {
        id: pasteNote

        width: parent.width
        text: qsTranslate("Vesko", "Text is copied after dictation. Automatic paste needs Accessibility access and an unchanged focused field. Secure or unsupported fields use copy only. Vesko never presses Return.")
    }
}
