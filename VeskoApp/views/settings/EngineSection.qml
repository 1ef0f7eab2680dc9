pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// The engines for speech on this machine: which is in use, what each makes of a spoken sentence,
// and how to get a better one.
Section {
    id: section

    required property var engines
    required property var downloads

    title: qsTranslate("Vesko", "Speech on this computer")

    Repeater {
        model: section.engines.engines

        Column {
            id: row

            required property var modelData
            readonly property bool chosen: section.engines.engine === modelData.tag
            readonly property bool tried: section.engines.trial.engine === modelData.tag

            width: parent?.width ?? 0
            spacing: 4

            RowLayout {
                width: parent.width
                spacing: Theme.space

                Column {
                    Layout.fillWidth: true
                    Accessible.role: Accessible.ListItem
                    Accessible.name: row.modelData.name
                    Accessible.description: row.modelData.detail
                        + (row.chosen ? ". " + qsTranslate("Vesko", "In use") : "")

                    Words {
                        width: parent.width
                        text: row.modelData.name
                        font.weight: row.chosen ? Font.DemiBold : Font.Normal
                        wrapMode: Text.Wrap
                    }
                    SettingNote {
                        width: parent.width
                        text: row.modelData.detail
                    }
                }
                PushButton {
                    readonly property bool speaking: row.tried && section.engines.trial.listening

                    text: speaking ? qsTranslate("Vesko", "Done speaking") : qsTranslate("Vesko", "Try")
                    iconName: speaking ? "stop" : "microphone"
                    enabled: speaking || !section.engines.trial.busy
                    Accessible.name: text + ", " + row.modelData.name
                    onClicked: speaking ? section.engines.trial.stop() : section.engines.trial.start(row.modelData.tag)
                }
                PushButton {
                    text: row.chosen ? qsTranslate("Vesko", "In use") : qsTranslate("Vesko", "Use")
                    enabled: !row.chosen
                    Accessible.name: text + ", " + row.modelData.name
                    onClicked: section.engines.engine = row.modelData.tag
                }
            }
            SettingNote {
                width: parent.width
                visible: row.tried && text.length > 0
                text: section.engines.trial.listening ? qsTranslate("Vesko", "Speak a sentence now. Nothing of it is stored.")
                                                      : section.engines.trial.outcome
                Accessible.role: Accessible.StatusBar
            }
        }
    }
    SettingNote {
        width: parent.width
        visible: section.engines.looking
        text: qsTranslate("Vesko", "Looking for engines…")
    }
    SettingNote {
        width: parent.width
        text: section.engines.problem
        color: Theme.alarm
    }
    SettingText {
        width: parent.width
        visible: section.engines.engine === "command"
        name: qsTranslate("Vesko", "Program and arguments")
        value: section.engines.command
        onEdited: text => section.engines.command = text
    }
    SettingText {
        width: parent.width
        visible: section.engines.engine === "command"
        name: qsTranslate("Vesko", "Model of the program")
        value: section.engines.commandModel
        onEdited: text => section.engines.commandModel = text
    }
    SettingText {
        width: parent.width
        visible: section.engines.engine === "server"
        name: qsTranslate("Vesko", "Server address")
        value: section.engines.server
        onEdited: text => section.engines.server = text
    }
    SettingText {
        width: parent.width
        visible: section.engines.engine === "server"
        name: qsTranslate("Vesko", "Model of the server")
        value: section.engines.serverModel
        onEdited: text => section.engines.serverModel = text
    }
    SettingLine {
        width: parent.width
        visible: section.engines.engine === "server"
        name: qsTranslate("Vesko", "Key of the server")

        Words {
            anchors.verticalCenter: parent.verticalCenter
            text: section.engines.keyStatus
            color: Theme.quiet
        }
        TextBox {
            width: 160
            name: qsTranslate("Vesko", "Key of the server")
            echoMode: TextInput.Password
            Accessible.description: name // a password has no name of its own over the bus
            onTextEdited: section.engines.keyDraft = text
            onAccepted: section.engines.saveKey()

            Binding on text {
                value: section.engines.keyDraft
            }
        }
        PushButton {
            text: qsTranslate("Vesko", "Save")
            Accessible.name: qsTranslate("Vesko", "Save the key of the server")
            onClicked: section.engines.saveKey()
        }
    }
    SettingNote {
        width: parent.width
        text: section.engines.advice
    }
    SettingLine {
        width: parent.width
        visible: section.downloads.models.length > 0
        name: qsTranslate("Vesko", "Get a model")

        Picker {
            id: model

            width: 190
            name: qsTranslate("Vesko", "Get a model")
            textRole: "name"
            choices: section.downloads.models
            currentIndex: 0
            onActivated: index => currentIndex = index
        }
        PushButton {
            text: section.downloads.loading ? qsTranslate("Vesko", "Pause loading") : qsTranslate("Vesko", "Load")
            onClicked: section.downloads.loading ? section.downloads.pause()
                                                 : section.downloads.get(section.downloads.models[model.currentIndex].tag)
        }
    }
    SettingNote {
        width: parent.width
        text: section.downloads.message
        Accessible.role: Accessible.StatusBar
    }
    SettingSwitch {
        width: parent.width
        text: qsTranslate("Vesko", "Tell the engine the terms of your dictionary")
        value: section.engines.expectTerms
        onSwitched: on => section.engines.expectTerms = on
    }
}
