import QtQuick
import QtQuick.Templates as T

// What a control is for, shown after a moment of resting on it.
T.ToolTip {
    id: hint

    property bool shown: false

    visible: shown && text.length > 0
    delay: 600
    x: parent ? Math.round((parent.width - implicitWidth) / 2) : 0
    y: parent ? parent.height + 6 : 0
    margins: 6
    padding: 7
    leftPadding: 10
    rightPadding: 10
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    contentItem: Text {
        text: hint.text
        font.family: Theme.family
        font.pixelSize: Theme.small
        color: Theme.text
        textFormat: Text.PlainText
    }
    background: Rectangle {
        radius: Theme.corner
        color: Theme.surface
        border.color: Theme.outline
    }
}
