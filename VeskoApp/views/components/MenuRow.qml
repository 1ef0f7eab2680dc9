pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

// An item of a menu, with its keys at the right if it has any; or a line that parts two groups.
T.MenuItem {
    id: control

    property string keys
    property bool destructive: false
    property bool parts: false // is such a line

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: parts ? 11 : 32
    leftPadding: 12
    rightPadding: 12
    font.family: Theme.family
    font.pixelSize: Theme.body
    enabled: !parts
    activeFocusOnTab: enabled // keys pass by what is off

    Accessible.ignored: parts
    Accessible.name: text
    Accessible.description: keys
    Accessible.focusable: enabled // the bus is told in no other way that it is off
    Accessible.onPressAction: if (enabled) { triggered(); menu.close(); }

    contentItem: RowLayout {
        spacing: 32
        visible: !control.parts
        opacity: control.enabled ? 1 : 0.45

        Text {
            Layout.fillWidth: true
            text: control.text
            font: control.font
            color: control.destructive ? Theme.alarm : Theme.text
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
        Text {
            visible: control.keys.length > 0
            text: control.keys
            font.family: Theme.family
            font.pixelSize: Theme.small
            color: Theme.quiet
            Accessible.ignored: true
        }
    }
    background: Rectangle {
        radius: Theme.corner
        color: control.enabled && (control.highlighted || control.hovered) ? Theme.chosen
                                                                           : "transparent"

        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 8
            anchors.verticalCenter: parent.verticalCenter
            height: 1
            visible: control.parts
            color: Theme.hairline
        }
    }
}
