import QtQuick

// Whose key pays for OpenRouter.
Section {
    id: section

    required property var preferences

    title: qsTranslate("Vesko", "OpenRouter access")

    SettingPicker {
        width: parent.width
        visible: choices.length > 1
        name: qsTranslate("Vesko", "Use")
        choices: section.preferences.keySources
        value: section.preferences.usesPersonalKey ? "personal" : "vesko"
        onChosen: tag => section.preferences.keySource = tag
    }
    Row {
        visible: !section.preferences.usesPersonalKey
        spacing: 8

        Icon {
            anchors.verticalCenter: ready.verticalCenter
            name: "check-circle"
            color: Theme.accent
        }
        Words {
            id: ready

            text: qsTranslate("Vesko", "Vesko access is ready")
        }
    }
    SettingLine {
        width: parent.width
        visible: section.preferences.usesPersonalKey
        name: qsTranslate("Vesko", "Key status")

        Words {
            text: section.preferences.keyStatus
            color: Theme.quiet
        }
    }
    TextBox {
        width: parent.width
        visible: section.preferences.usesPersonalKey
        name: qsTranslate("Vesko", "Your personal API key")
        placeholderText: section.preferences.keyPrompt
        echoMode: TextInput.Password
        Accessible.description: name // a password has no name of its own over the bus
        onTextEdited: section.preferences.keyDraft = text
        onAccepted: section.preferences.saveKey()

        Binding on text {
            value: section.preferences.keyDraft
        }
    }
    Flow {
        width: parent.width
        visible: section.preferences.usesPersonalKey
        spacing: Theme.space

        PushButton {
            text: qsTranslate("Vesko", "Save key")
            onClicked: section.preferences.saveKey()
        }
        PushButton {
            text: qsTranslate("Vesko", "Remove key")
            enabled: section.preferences.hasKey
            onClicked: section.preferences.removeKey()
        }
        PushButton {
            text: qsTranslate("Vesko", "OpenRouter account")
            flat: true
            Accessible.role: Accessible.Link
            onClicked: section.preferences.openCredits()
        }
    }
    SettingNote {
        width: parent.width
        visible: section.preferences.usesPersonalKey
        text: qsTranslate("Vesko", "Your key belongs to this macOS account. Vesko does not share it with other users or top up your balance.")
    }
}
