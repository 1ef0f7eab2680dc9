pragma ComponentBehavior: Bound

import QtQuick

// The five-line mark; while recording its lines follow the voice.
Row {
    id: mark

    property bool recording: false
    property real level: 0

    readonly property var resting: [4, 7, 12, 7, 4]
    readonly property var speaking: [7, 12, 16, 12, 7]

    spacing: 2.4

    Repeater {
        model: 5

        Item {
            id: line

            required property int index

            width: 1.9
            height: 20

            Rectangle {
                anchors.centerIn: parent
                width: parent.width
                radius: width / 2
                color: Theme.accent
                height: mark.recording ? mark.speaking[line.index] * (0.45 + 0.75 * mark.level)
                                       : mark.resting[line.index]
            }
        }
    }
}
