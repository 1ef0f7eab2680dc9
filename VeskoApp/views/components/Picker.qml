pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// One of several, chosen from a list that opens below. Tells by activated(index) what the user
// chose. With `flat` it has no face of its own.
T.ComboBox {
    id: control

    required property string name
    property string iconName

    implicitWidth: Math.max(120, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Theme.control
    leftPadding: iconName ? 34 : 12
    rightPadding: 30
    focusPolicy: Qt.StrongFocus
    font.family: Theme.family
    font.pixelSize: Theme.body

    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    Accessible.description: displayText
    Accessible.onPressAction: if (enabled) {
        forceActiveFocus(Qt.OtherFocusReason); // for the list, which has none of its own
        popup.open();
    }
    Keys.onReturnPressed: popup.open()

    contentItem: Text {
        text: control.displayText
        font: control.font
        color: Theme.text
        opacity: control.enabled ? 1 : 0.45
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
    indicator: Icon {
        x: control.width - width - 9
        anchors.verticalCenter: parent?.verticalCenter
        name: "chevron"
        size: 14
        enabled: control.enabled
    }
    background: Rectangle {
        radius: Theme.corner
        color: control.flat ? "transparent" : Theme.field
        border.width: control.flat ? 0 : 1
        border.color: Theme.edge

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"
        }
        Icon {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: control.iconName.length > 0
            name: control.iconName
            size: 16
        }
        FocusRing {
            visible: control.visualFocus
        }
    }

    delegate: T.ItemDelegate {
        id: row

        required property int index
        required property var modelData
        readonly property string label: control.textRole ? modelData[control.textRole] : modelData

        width: ListView.view.width
        implicitHeight: 32
        highlighted: control.highlightedIndex === index
        Accessible.role: Accessible.ListItem
        Accessible.name: label
        Accessible.selected: control.currentIndex === index
        Accessible.onPressAction: {
            control.currentIndex = index;
            control.activated(index);
            control.popup.close();
        }

        contentItem: Text {
            leftPadding: 12
            rightPadding: 26
            text: row.label
            font.family: Theme.family
            font.pixelSize: Theme.body
            font.weight: control.currentIndex === row.index ? Font.DemiBold : Font.Normal
            color: Theme.text
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
        background: Rectangle {
            radius: Theme.corner
            color: row.highlighted || row.hovered ? Theme.chosen : "transparent"

            Icon {
                anchors.right: parent.right
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                visible: control.currentIndex === row.index
                name: "check"
                color: Theme.accent
                size: 14
            }
        }
    }

    popup: T.Popup {
        y: control.height + 4
        width: Math.max(control.width, 180)
        height: Math.min(contentItem.implicitHeight + 12, 340)
        margins: 6
        padding: 6
        // The one around the list; it takes no name for itself.
        Component.onCompleted: contentItem.parent.Accessible.name = Qt.binding(() => control.name)

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            // Qt 6.4 ends badly with a picker whose list, once opened, still has its rows.
            model: control.popup.visible ? control.delegateModel : null // qmllint disable
            currentIndex: control.highlightedIndex
            highlightMoveDuration: 0
            boundsBehavior: Flickable.StopAtBounds
            T.ScrollBar.vertical: ScrollMark { }
        }
        background: Rectangle {
            radius: Theme.radius - 2
            color: Theme.surface
            border.color: Theme.outline
        }
    }
}
