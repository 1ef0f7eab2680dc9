pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// Where a term is written: what is recognized, what to use instead, and the outcome below.
Column {
    id: form

    required property var terms
    required property var dictionary

    // The keyboard comes here, to change what stands in the form.
    function begin() {
        original.forceActiveFocus(Qt.OtherFocusReason);
        original.selectAll();
    }
    function save() {
        if (!dictionary.canSave)
            return;
        dictionary.save();
        original.forceActiveFocus();
    }

    spacing: 8
    Keys.onEscapePressed: event => {
        event.accepted = dictionary.editing;
        if (dictionary.editing)
            dictionary.cancel();
    }

    RowLayout {
        width: parent.width
        spacing: 10

        Column {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            spacing: 6

            Words {
                text: original.name
                font.pixelSize: Theme.small
                font.weight: Font.Medium
                color: Theme.quiet
            }
            TextBox {
                id: original

                width: parent.width
                name: qsTranslate("Vesko", "Recognized term")
                placeholderText: qsTranslate("Vesko", "For example: tallki")
                onTextEdited: form.dictionary.original = text
                onAccepted: form.save()

                Binding on text {
                    value: form.dictionary.original
                }
            }
        }
        Icon {
            Layout.alignment: Qt.AlignBottom
            Layout.bottomMargin: 9
            name: "arrow"
            size: 16
        }
        Column {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            spacing: 6

            Words {
                text: replacement.name
                font.pixelSize: Theme.small
                font.weight: Font.Medium
                color: Theme.quiet
            }
            TextBox {
                id: replacement

                width: parent.width
                name: qsTranslate("Vesko", "Use instead")
                placeholderText: qsTranslate("Vesko", "For example: Vesko")
                onTextEdited: form.dictionary.replacement = text
                onAccepted: form.save()

                Binding on text {
                    value: form.dictionary.replacement
                }
            }
        }
        PushButton {
            Layout.alignment: Qt.AlignBottom
            text: form.dictionary.saveTitle
            prominent: true
            enabled: form.dictionary.canSave
            onClicked: form.save()
        }
        PushButton {
            Layout.alignment: Qt.AlignBottom
            visible: form.dictionary.editing
            text: qsTranslate("Vesko", "Cancel")
            onClicked: form.dictionary.cancel()
        }
    }
    Announcement {
        text: form.terms.message
    }
    Words {
        width: parent.width
        visible: text.length > 0
        text: form.terms.message
        font.pixelSize: Theme.small
        color: Theme.quiet
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StatusBar
    }
}
