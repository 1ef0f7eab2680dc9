pragma ComponentBehavior: Bound

import QtQuick

// A heading with what belongs under it.
Column {
    id: section

    property string title
    default property alias body: content.data

    spacing: 10
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Words {
        text: section.title
        font.pixelSize: Theme.small
        font.weight: Font.DemiBold
        color: Theme.quiet
        Accessible.role: Accessible.Heading
    }
    Column {
        id: content

        width: section.width
        spacing: 10
    }
}
