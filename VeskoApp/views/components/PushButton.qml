pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A button with words, and an icon before them if it has one. Prominent for the one thing that is
// most likely wanted, destructive for what takes something away.
T.Button {
    id: control

    property bool prominent: false
    property bool destructive: false
    property string iconName
    property string help

    readonly property color ink: prominent ? (destructive ? Theme.alarmInk : Theme.accentInk)
                                           : destructive ? Theme.alarm : Theme.text
    readonly property color fill: prominent ? (destructive ? Theme.alarm : Theme.accent)
                                            : flat ? "transparent" : Theme.field

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.control
    leftPadding: iconName ? 11 : 14
    rightPadding: 14
    focusPolicy: enabled ? Qt.StrongFocus : Qt.NoFocus
    font.family: Theme.family
    font.pixelSize: Theme.body
    font.weight: prominent ? Font.DemiBold : Font.Medium

    Accessible.name: text
    Accessible.description: help
    Accessible.focusable: enabled // the bus is told in no other way that it is off
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        implicitWidth: children[0].implicitWidth
        implicitHeight: children[0].implicitHeight

        Row {
            anchors.centerIn: parent
            spacing: 7
            opacity: control.enabled ? 1 : 0.45

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.iconName.length > 0
                name: control.iconName
                color: control.prominent ? control.ink : control.destructive ? control.ink : Theme.quiet
                size: 16
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: control.text
                font: control.font
                color: control.ink
                Accessible.ignored: true
            }
        }
    }

    background: Rectangle {
        radius: Theme.corner
        color: control.fill
        border.width: control.prominent || control.flat ? 0 : 1
        border.color: Theme.edge
        opacity: control.enabled ? 1 : 0.6

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"
        }
        FocusRing {
            away: control.prominent ? 2 : 0 // it has the button's own colour
            visible: control.visualFocus
        }
    }

    Hint {
        text: control.help
        shown: control.hovered
    }
}
