pragma ComponentBehavior: Bound

import QtQuick

// What becomes of a transcript before it is delivered: translation and cleanup.
Column {
    id: sections

    required property var catalog
    required property var preferences

    spacing: 18

    Section {
        width: parent.width
        title: qsTranslate("Vesko", "Translation")

        SettingPicker {
            width: parent.width
            name: qsTranslate("Vesko", "Translate dictation into")
            choices: sections.preferences.translations
            value: sections.preferences.translateTo
            onChosen: tag => sections.preferences.translateTo = tag
        }
        SettingText {
            width: parent.width
            visible: sections.preferences.translates
            name: qsTranslate("Vesko", "Text model ID")
            value: sections.preferences.cleanupModel
            onEdited: text => sections.preferences.cleanupModel = text
        }
        SettingNote {
            width: parent.width
            text: qsTranslate("Vesko", "Off by default. When on, each transcript is sent to the text model below for a separate paid request. The original transcript stays saved with the recording.")
        }
    }
    Section {
        width: parent.width
        title: qsTranslate("Vesko", "Optional AI cleanup")
        last: true

        SettingSwitch {
            width: parent.width
            text: qsTranslate("Vesko", "Clean up punctuation and repeated words")
            note: cleanupNote.text
            value: sections.preferences.cleanupEnabled
            onSwitched: on => sections.preferences.cleanupEnabled = on
        }
        SettingText {
            width: parent.width
            visible: sections.preferences.cleanupEnabled
            name: qsTranslate("Vesko", "Text model ID")
            value: sections.preferences.cleanupModel
            onEdited: text => sections.preferences.cleanupModel = text
        }
        PushButton {
            id: suggested

            visible: sections.preferences.cleanupEnabled
            text: qsTranslate("Vesko", "Suggested text models")
            Accessible.role: Accessible.ButtonMenu
            onClicked: {
                forceActiveFocus(Qt.OtherFocusReason);
                models.get().popup(suggested, 0, suggested.height + 4);
            }

            OnDemand {
                id: models

                PopupMenu {
                    id: rows

                    title: suggested.text

                    Instantiator {
                        model: sections.preferences.suggestedTextModels
                        onObjectAdded: (index, object) => rows.insertItem(index, object)
                        onObjectRemoved: (index, object) => rows.removeItem(object)

                        MenuRow {
                            required property string modelData

                            text: modelData
                            onTriggered: sections.preferences.cleanupModel = modelData
                        }
                    }
                }
            }
        }
        SettingNote {
            id: cleanupNote

            width: parent.width
            text: qsTranslate("Vesko", "Adds a separate paid request. With Apple speech, only the transcript is sent for cleanup. The original transcript stays available.")
        }
        Row {
            spacing: Theme.space

            PushButton {
                text: sections.preferences.catalogTitle
                enabled: !sections.catalog.loading
                onClicked: sections.catalog.refresh()
            }
            PushButton {
                visible: sections.catalog.loading
                text: qsTranslate("Vesko", "Cancel")
                onClicked: sections.catalog.cancel()
            }
        }
        SettingNote {
            width: parent.width
            text: sections.catalog.message
        }
    }
}
