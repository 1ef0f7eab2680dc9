import QtQuick
import QtQuick.Layouts

// The name of a setting, with what it is set by at the right.
RowLayout {
    id: line

    property string name
    default property alias control: place.data

    spacing: 16

    Words {
        Layout.fillWidth: true
        text: line.name
        wrapMode: Text.Wrap
    }
    Row {
        id: place

        spacing: Theme.space
    }
}
