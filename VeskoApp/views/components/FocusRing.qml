import QtQuick

// Shows around its parent that the keyboard is there.
Rectangle {
    property int away: 0 // between it and its parent

    anchors.fill: parent
    anchors.margins: -2 - away
    radius: Theme.corner + 2 + away
    color: "transparent"
    border.color: Theme.accent
    border.width: 2
}
