pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A setting that is on or off, its words before the switch. Tells by toggled() what the user did.
T.Switch {
    id: control

    property string name: text
    property string help
    property string note // what stands below it

    implicitWidth: implicitContentWidth
    implicitHeight: Math.max(Theme.control, implicitContentHeight)
    focusPolicy: Qt.StrongFocus
    font.family: Theme.family
    font.pixelSize: Theme.body

    Accessible.role: Accessible.CheckBox
    Accessible.name: name
    Accessible.description: help || note
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: press()
    Accessible.onPressAction: press()

    function press() {
        if (!enabled)
            return;
        toggle();
        toggled();
    }

    indicator: Rectangle {
        x: control.width - width
        anchors.verticalCenter: parent?.verticalCenter
        width: 38
        height: 22
        radius: height / 2
        color: control.checked ? Theme.accent : Theme.edge
        opacity: control.enabled ? 1 : 0.45

        Rectangle {
            x: 3 + control.visualPosition * (parent.width - width - 6)
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16
            radius: 8
            color: control.checked ? Theme.accentInk : Theme.window

            Behavior on x {
                enabled: !control.down
                NumberAnimation { duration: Theme.swift; easing.type: Easing.OutCubic }
            }
        }
        FocusRing {
            radius: height / 2
            visible: control.visualFocus
        }
    }
    contentItem: Text {
        rightPadding: control.indicator.width + (control.text ? 16 : 0)
        text: control.text
        font: control.font
        color: Theme.text
        opacity: control.enabled ? 1 : 0.45
        wrapMode: Text.Wrap
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    Hint {
        text: control.help
        shown: control.hovered || control.visualFocus
    }
}
