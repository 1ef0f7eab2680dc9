pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A question above a window, with "Cancel" and the button that agrees. What stands between title
// and buttons is its content. Escape cancels, and so does Return where nothing could bring back
// what is agreed to; the keyboard goes back to where it was.
T.Dialog {
    id: sheet

    property string text
    property string agreeText
    property bool destructive: false
    property bool irrevocable: false
    property bool canAgree: true
    property bool cancellable: true
    default property list<Item> body // between the text and the buttons

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(420, parent ? parent.width - 48 : 420)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 24
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    onClosed: parent.Window.window?.giveBack()

    contentItem: Column {
        spacing: 10

        Words {
            width: sheet.availableWidth
            text: sheet.title
            font.pixelSize: Theme.heading
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        Words {
            width: sheet.availableWidth
            visible: text.length > 0
            text: sheet.text
            color: Theme.quiet
            lineHeight: Theme.lineHeight
            wrapMode: Text.Wrap
        }
        Column {
            width: sheet.availableWidth
            children: sheet.body // qmllint disable
        }
        Item {
            width: 1
            height: 4
        }
        Row {
            anchors.right: parent.right
            spacing: Theme.space

            PushButton {
                visible: sheet.cancellable
                text: qsTranslate("Vesko", "Cancel")
                prominent: sheet.irrevocable
                focus: sheet.irrevocable
                onClicked: sheet.reject()
            }
            PushButton {
                text: sheet.agreeText
                prominent: !sheet.irrevocable
                destructive: sheet.destructive
                enabled: sheet.canAgree
                focus: !sheet.irrevocable
                onClicked: sheet.accept()
            }
        }
    }
    background: Rectangle {
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.outline
    }
    T.Overlay.modal: Rectangle {
        color: Theme.shade
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.swift }
    }
}
