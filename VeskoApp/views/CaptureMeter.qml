pragma ComponentBehavior: Bound

import QtQuick

// What the floating control's button shows while it is live: the voice as bars, or that something
// is being worked on as dots.
Item {
    id: meter

    required property var control

    Repeater {
        model: meter.control.bars.length

        Rectangle {
            required property int index

            x: meter.width / 2 - 14 + 28 * (index + 1) / 6 - width / 2
            anchors.verticalCenter: meter.verticalCenter
            width: 2.3
            height: 3 + 21 * (meter.control.bars[index] ?? 0)
            radius: width / 2
            color: Theme.captureInk
        }
    }
    Repeater {
        model: meter.control.dots.length

        Rectangle {
            required property int index

            x: meter.width / 2 - 14 + 28 * (index + 1) / 4 - width / 2
            anchors.verticalCenter: meter.verticalCenter
            opacity: meter.control.dots[index] ?? 0
            width: 3.2
            height: 3.2
            radius: 1.6
            color: Theme.captureInk
        }
    }
}
