pragma ComponentBehavior: Bound

import QtQuick

// A part of the settings form: its heading, and the lines under it.
Column {
    id: section

    property string title
    default property alias body: content.data

    spacing: 10
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Words {
        width: section.width
        text: section.title
        font.pixelSize: 15
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    Column {
        id: content

        width: section.width
        spacing: 8
    }
    Item {
        width: 1
        height: 14
    }
    Rectangle {
        width: section.width
        height: 1
        color: Theme.hairline
    }
}
