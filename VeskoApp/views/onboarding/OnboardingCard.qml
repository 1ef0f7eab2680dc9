pragma ComponentBehavior: Bound

import QtQuick

// One thing that is good to know: an icon or a key, what it is, and a line about it.
Row {
    id: card

    property string iconName
    property string keys
    property int lead: 36 // the width before the words
    property string title
    property string text

    spacing: 16

    Item {
        width: card.lead
        height: Math.max(36, words.height)

        Rectangle {
            anchors.centerIn: parent
            width: card.keys ? parent.width : 36
            height: card.keys ? 30 : 36
            radius: card.keys ? Theme.corner : 10
            color: card.keys ? Theme.field : Theme.chosen
            border.width: card.keys ? 1 : 0
            border.color: Theme.outline

            Icon {
                anchors.centerIn: parent
                visible: !card.keys
                name: card.iconName
                color: Theme.accent
                size: 19
            }
            Text {
                anchors.fill: parent
                anchors.margins: 4
                text: card.keys
                visible: card.keys.length > 0
                font.family: Theme.family
                font.pixelSize: Theme.small
                font.weight: Font.Medium
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 9
                color: Theme.text
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
        }
    }
    Column {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        width: card.width - x
        spacing: 2

        Words {
            width: parent.width
            text: card.title
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
        }
        Words {
            width: parent.width
            text: card.text
            color: Theme.quiet
            wrapMode: Text.Wrap
        }
    }
}
