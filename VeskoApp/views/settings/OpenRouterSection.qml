import QtQuick

// Whose key pays for OpenRouter.
Section {
    id: section

    required property var preferences
    readonly property var keyForm: preferences.keyForm

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
            text: section.keyForm.status
            color: Theme.quiet
        }
    }
    TextBox {
        width: parent.width
        visible: section.preferences.usesPersonalKey
        name: qsTranslate("Vesko", "Your personal API key")
        placeholderText: section.keyForm.prompt
        echoMode: TextInput.Password
        Accessible.description: name // a password has no name of its own over the bus
        onTextEdited: section.keyForm.draft = text
        onAccepted: section.keyForm.save()

        Binding on text {
            value: section.keyForm.draft
        }
    }
    Flow {
        width: parent.width
        visible: section.preferences.usesPersonalKey
        spacing: Theme.space

        PushButton {
            text: qsTranslate("Vesko", "Save key")
            onClicked: section.keyForm.save()
        }
        PushButton {
            text: qsTranslate("Vesko", "Remove key")
            enabled: section.keyForm.hasKey
            onClicked: section.keyForm.remove()
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
