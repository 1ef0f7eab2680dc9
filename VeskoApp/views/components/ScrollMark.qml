import QtQuick
import QtQuick.Templates as T

// Where in a long content one is; wide enough to be dragged.
T.ScrollBar {
    id: control

    implicitWidth: 12
    padding: 3
    visible: size < 1
    minimumSize: 0.06
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 6
        radius: 3
        color: Theme.quiet
        opacity: control.pressed ? 0.8 : control.hovered ? 0.6 : control.active ? 0.4 : 0.15

        Behavior on opacity {
            NumberAnimation { duration: Theme.calm }
        }
    }
}
