pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window

// The floating control: says what Vesko is doing and starts or ends a dictation by a click. It
// never takes the focus from the field that is being dictated into.
Window {
    id: panel

    required property var model

    title: "Vesko"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.WindowDoesNotAcceptFocus
    color: "transparent"
    width: 340
    height: content.implicitHeight + 3 * Theme.space
    x: Screen.virtualX + Screen.desktopAvailableWidth - width - 3 * Theme.space
    y: Screen.virtualY + Screen.desktopAvailableHeight - height - 3 * Theme.space

    Rectangle {
        id: surface

        anchors.fill: parent
        enabled: panel.model.recording || (panel.model.libraryReady && !panel.model.busy)
        radius: Theme.radius
        color: Theme.surface
        border.color: pointer.containsMouse ? Theme.accent : Theme.outline

        Accessible.role: Accessible.Button
        Accessible.focusable: enabled
        Accessible.name: panel.model.phaseTitle
        Accessible.onPressAction: panel.model.toggleDictation()

        MouseArea {
            id: pointer

            anchors.fill: parent
            hoverEnabled: true
            onClicked: panel.model.toggleDictation()
        }

        Row {
            id: content

            x: 2 * Theme.space
            y: 1.5 * Theme.space
            spacing: 1.5 * Theme.space

            LevelMark {
                id: mark

                anchors.verticalCenter: parent.verticalCenter
                recording: panel.model.recording
                level: panel.model.level
                opacity: panel.model.busy ? 0.5 : 1
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter
                width: surface.width - mark.width - 6 * Theme.space
                spacing: 2

                StatusLine {
                    text: panel.model.message
                    color: Theme.text
                }
                StatusLine {
                    text: panel.model.errorMessage
                    color: Theme.alarm
                }
                StatusLine {
                    text: panel.model.shortcutMessage
                    color: Theme.quiet
                }
            }
        }
    }

    component StatusLine: Text {
        width: parent.width
        visible: text.length > 0
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        font.family: Theme.family
        font.pixelSize: Theme.body
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
