pragma ComponentBehavior: Bound

import QtQuick

// A heading with what belongs under it, and a line to what follows.
Column {
    id: section

    property string title
    property bool last: false // nothing follows
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
        visible: !section.last
    }
    Rectangle {
        width: section.width
        height: 1
        visible: !section.last
        color: Theme.hairline
    }
}
