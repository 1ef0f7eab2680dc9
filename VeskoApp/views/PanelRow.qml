import QtQuick

// A row of the floating control's menu.
Rectangle {
    id: row

    property string text

    signal chosen

    width: parent?.width ?? 0
    height: 30
    radius: Theme.corner
    color: hover.hovered && enabled ? Theme.chosen : "transparent"
    opacity: enabled ? 1 : 0.45
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.focusable: enabled
    Accessible.onPressAction: if (enabled) chosen()

    HoverHandler {
        id: hover
    }
    TapHandler {
        gesturePolicy: TapHandler.WithinBounds // what lies below hears nothing of it
        onTapped: row.chosen()
    }
    Text {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        text: row.text
        font.family: Theme.family
        font.pixelSize: 13
        color: Theme.text
        Accessible.ignored: true
    }
}
