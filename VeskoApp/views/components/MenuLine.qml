import QtQuick
import QtQuick.Templates as T

// Parts the groups of a menu.
T.MenuSeparator {
    implicitHeight: 11
    implicitWidth: 100
    contentItem: Item {
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 8
            anchors.verticalCenter: parent.verticalCenter
            height: 1
            color: Theme.hairline
        }
    }
}
