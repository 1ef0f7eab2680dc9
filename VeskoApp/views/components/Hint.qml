pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// What a control is for, shown after a moment of resting on it. Nothing is made before that.
OnDemand {
    id: hint

    property string text
    property bool shown: false

    anchors.fill: parent
    onShownChanged: if (shown && text) get()

    T.ToolTip {
        id: tip

        visible: hint.shown && text.length > 0
        text: hint.text
        delay: 600
        x: Math.round((hint.width - implicitWidth) / 2)
        y: hint.height + 6
        margins: 6
        padding: 7
        leftPadding: 10
        rightPadding: 10
        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

        contentItem: Text {
            text: tip.text
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
}
