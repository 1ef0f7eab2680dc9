pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A button that shows an icon alone; its name is said to a screen reader and shown on hovering.
T.Button {
    id: control

    required property string name
    property string help: name
    property string iconName
    property color ink: Theme.quiet

    implicitWidth: Theme.control
    implicitHeight: Theme.control
    focusPolicy: enabled ? Qt.StrongFocus : Qt.NoFocus

    Accessible.name: name
    Accessible.description: help === name ? "" : help
    Accessible.focusable: enabled // the bus is told in no other way that it is off
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: control.iconName
            color: control.ink
            enabled: control.enabled
        }
    }
    background: Rectangle {
        radius: Theme.corner
        color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"

        FocusRing {
            visible: control.visualFocus
        }
    }

    Hint {
        text: control.help
        shown: control.hovered || control.visualFocus
    }
}
