pragma ComponentBehavior: Bound

import QtQuick

// That something goes on, and what: dots that come and go above the words, or stand still for who
// wants stillness.
Column {
    id: working

    property string text

    spacing: 12

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 6

        Repeater {
            model: 3

            Rectangle {
                id: dot

                required property int index

                width: 6
                height: 6
                radius: 3
                color: Theme.accent
                opacity: 0.8

                SequentialAnimation {
                    running: working.visible && !Theme.reduceMotion
                    loops: Animation.Infinite

                    PauseAnimation { duration: 160 * dot.index }
                    NumberAnimation { target: dot; property: "opacity"; to: 0.25; duration: 450; easing.type: Easing.InOutQuad }
                    NumberAnimation { target: dot; property: "opacity"; to: 0.8; duration: 450; easing.type: Easing.InOutQuad }
                    PauseAnimation { duration: 160 * (2 - dot.index) }
                }
            }
        }
    }
    Words {
        text: working.text
        color: Theme.quiet
    }
}
