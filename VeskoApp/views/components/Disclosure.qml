pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A text behind its title, which opens and closes it, with buttons below the text.
Column {
    id: disclosure

    property string title
    property string text
    property bool open: false
    default property alias actions: actions.data

    spacing: 4

    T.Button {
        id: head

        implicitHeight: 28
        implicitWidth: implicitContentWidth
        focusPolicy: Qt.StrongFocus
        checkable: false
        Accessible.name: disclosure.title
        Accessible.checkable: true
        Accessible.checked: disclosure.open
        Accessible.onPressAction: clicked()
        Keys.onReturnPressed: clicked()
        onClicked: disclosure.open = !disclosure.open

        contentItem: Row {
            spacing: 6

            Icon {
                anchors.verticalCenter: parent?.verticalCenter
                name: "chevron"
                size: 12
                rotation: disclosure.open ? 0 : -90

                Behavior on rotation {
                    NumberAnimation { duration: Theme.swift }
                }
            }
            Text {
                anchors.verticalCenter: parent?.verticalCenter
                text: disclosure.title
                font.family: Theme.family
                font.pixelSize: Theme.small
                font.weight: Font.Medium
                color: head.hovered ? Theme.text : Theme.quiet
                Accessible.ignored: true
            }
        }
        background: Item {
            FocusRing {
                visible: head.visualFocus
            }
        }
    }
    TextEdit {
        x: 18
        width: disclosure.width - 18
        visible: disclosure.open
        text: disclosure.text
        readOnly: true
        selectByMouse: true
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        font.family: Theme.family
        font.pixelSize: Theme.body
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Row {
        id: actions

        x: 8
        visible: disclosure.open
    }
}
