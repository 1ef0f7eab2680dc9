pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A row of a sidebar or a list: an icon, a title, and what the row itself puts below or beside it.
T.ItemDelegate {
    id: control

    property bool chosen: false
    property string iconName
    property string name: text
    property string detail // said with the name
    property int lines: 1 // that the title may take
    property bool keyboardHere: visualFocus

    implicitHeight: Theme.control
    leftPadding: 10
    rightPadding: 10
    focusPolicy: Qt.StrongFocus
    font.family: Theme.family
    font.pixelSize: Theme.body

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: detail
    Accessible.selectable: true
    Accessible.selected: chosen
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        implicitHeight: Math.max(children[1].implicitHeight, 17)

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: control.iconName
            color: control.chosen ? Theme.accent : Theme.quiet
            size: 17
        }
        Text {
            x: control.iconName ? 27 : 0
            width: parent.width - x
            anchors.verticalCenter: parent.verticalCenter
            text: control.text
            font: control.font
            color: Theme.text
            elide: Text.ElideRight
            maximumLineCount: control.lines
            wrapMode: control.lines > 1 ? Text.Wrap : Text.NoWrap
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        radius: Theme.corner
        color: control.chosen ? Theme.chosen : control.down ? Theme.press
                              : control.hovered ? Theme.hover : "transparent"

        FocusRing {
            anchors.margins: 0
            radius: Theme.corner
            visible: control.keyboardHere
        }
    }
}
