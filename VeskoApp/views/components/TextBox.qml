pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// One line of text to be typed, with its name as the prompt or above it.
T.TextField {
    id: control

    property string name: placeholderText
    property string iconName
    // What the bus is told of the text, by a name that Qt looks for: what is shown, where Qt 6.4 by
    // itself tells a password as it was typed, and never comes back from the question which word is
    // at the end of a line.
    readonly property alias textDocument: told.textDocument

    implicitWidth: 200
    implicitHeight: Theme.control
    leftPadding: iconName ? 34 : 12
    rightPadding: 12
    verticalAlignment: TextInput.AlignVCenter
    selectByMouse: true
    color: Theme.text
    placeholderTextColor: Theme.quiet
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    font.family: Theme.family
    font.pixelSize: Theme.body

    Accessible.role: Accessible.EditableText
    Accessible.name: name

    background: Rectangle {
        radius: Theme.corner
        color: Theme.field
        border.width: 1
        border.color: Theme.edge

        Icon {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: control.iconName.length > 0
            name: control.iconName
            size: 16
        }
        FocusRing {
            visible: control.activeFocus
        }
    }

    Text {
        x: control.leftPadding
        width: control.width - control.leftPadding - control.rightPadding
        height: control.height
        visible: control.length === 0 && control.preeditText.length === 0
        text: control.placeholderText
        font: control.font
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
        color: control.placeholderTextColor
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    TextEdit {
        id: told

        visible: false
        text: control.displayText
        textFormat: TextEdit.PlainText
        Accessible.ignored: true
    }

    Keys.onPressed: event => {
        event.accepted = ListKeys.isMenu(event);
        if (event.accepted)
            textMenu.open();
    }

    TextMenu {
        id: textMenu

        editor: control
    }
}
