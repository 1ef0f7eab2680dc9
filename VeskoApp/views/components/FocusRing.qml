import QtQuick

// Shows around its parent that the keyboard is there.
Rectangle {
    anchors.fill: parent
    anchors.margins: -2
    radius: Theme.corner + 2
    color: "transparent"
    border.color: Theme.accent
    border.width: 2
}
