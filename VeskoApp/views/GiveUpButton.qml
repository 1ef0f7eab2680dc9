import QtQuick

// Gives up what is being done to a recording.
Rectangle {
    id: button

    required property var capture

    implicitWidth: 22
    implicitHeight: 22
    radius: 11
    color: pointer.pressed ? Theme.press : pointer.containsMouse ? Theme.hover : "transparent"
    Accessible.role: Accessible.Button
    Accessible.name: qsTranslate("Vesko", "Cancel transcription")
    Accessible.onPressAction: capture.cancel()

    Icon {
        anchors.centerIn: parent
        name: "close"
        color: Theme.text
        size: 12
    }
    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        onClicked: button.capture.cancel()
    }
}
