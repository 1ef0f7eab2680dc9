pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

// Where a recording is that plays, over its wave, and how fast it plays. The position can be
// dragged, or moved by keys.
RowLayout {
    id: bar

    required property var playback

    function clock(seconds) {
        const whole = Math.floor(seconds);
        return `${Math.floor(whole / 60)}:${String(whole % 60).padStart(2, "0")}`;
    }

    spacing: 10

    T.Slider {
        id: slider

        Layout.fillWidth: true
        implicitHeight: Theme.control
        to: Math.max(0.1, bar.playback.seconds)
        stepSize: 1
        live: false // a sound that is sought for with each pixel is none
        focusPolicy: Qt.StrongFocus
        Accessible.name: qsTranslate("Vesko", "Position in the recording")
        Accessible.description: times.text
        onMoved: bar.playback.seek(value)
        onPressedChanged: if (!pressed) bar.playback.seek(value)
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
            if (event.accepted)
                bar.playback.seek(event.key === Qt.Key_Home ? 0 : to);
        }

        Binding on value {
            when: !slider.pressed
            value: bar.playback.position
        }

        background: Item {
            Wave {
                anchors.fill: parent
                color: Theme.edge
            }
            Item {
                height: parent.height
                width: parent.width * slider.visualPosition
                clip: true

                Wave {
                    width: slider.width
                    height: parent.height
                    color: Theme.accent
                }
            }
            FocusRing {
                visible: slider.visualFocus
            }
        }
        handle: Rectangle {
            x: slider.visualPosition * (slider.availableWidth - width)
            y: 4
            width: 3
            height: slider.height - 8
            radius: 1.5
            color: Theme.accent
        }
    }
    Words {
        id: times

        text: `${bar.clock(slider.pressed ? slider.valueAt(slider.position) : bar.playback.position)} / ${bar.clock(bar.playback.seconds)}`
        color: Theme.quiet
    }
    PushButton {
        text: `${bar.playback.rate.toLocaleString(Qt.locale(), "f", bar.playback.rate % 1 ? 1 : 0)}×`
        help: qsTranslate("Vesko", "Playback speed")
        flat: true
        onClicked: bar.playback.changeRate()
    }

    component Wave: Row {
        id: wave

        required property color color
        readonly property var parts: bar.playback.wave

        Repeater {
            model: wave.parts.length || 1

            Item {
                required property int index

                width: wave.width / (wave.parts.length || 1)
                height: wave.height

                Rectangle {
                    anchors.centerIn: parent
                    width: wave.parts.length ? Math.max(1, parent.width - 2) : parent.width
                    height: Math.max(2, (wave.parts[parent.index] ?? 0) * (wave.height - 8))
                    radius: 1
                    color: wave.color
                }
            }
        }
    }
}
