pragma ComponentBehavior: Bound

import QtQuick

// How long a recording lasts. Each digit has the same width, so that nothing jumps from second to
// second.
Row {
    id: time

    required property var control
    readonly property font font: Qt.font({ family: Theme.family, pixelSize: 13 })

    Accessible.role: Accessible.StaticText
    Accessible.name: control.elapsed

    Repeater {
        model: time.control.elapsed.length

        Text {
            required property int index

            width: text === ":" ? implicitWidth : digit.advanceWidth
            text: time.control.elapsed[index] ?? ""
            font: time.font
            color: Theme.accent
            horizontalAlignment: Text.AlignHCenter
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
    }
    TextMetrics {
        id: digit

        font: time.font
        text: "0"
    }
}
