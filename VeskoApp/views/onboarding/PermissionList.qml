pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// What the machine has to allow, row by row.
Column {
    id: list

    required property var permissions
    signal pressed(int row)

    spacing: 4

    Repeater {
        model: 4 // fixed, so that a button keeps the keyboard while its row changes

        RowLayout {
            id: row

            required property int index
            readonly property var state: list.permissions.rows[index]

            width: list.width
            height: Math.max(48, implicitHeight + 8)
            spacing: 12
            Accessible.role: Accessible.ListItem
            Accessible.name: state.name
            Accessible.description: state.line + " " + state.status

            Icon {
                name: row.state.allowed ? "check-circle" : "circle"
                color: row.state.allowed ? Theme.accent : Theme.quiet
                size: 20
            }
            Column {
                Layout.fillWidth: true
                spacing: 2

                Words {
                    width: parent.width
                    text: row.state.name
                    font.weight: Font.Medium
                    wrapMode: Text.Wrap
                }
                Words {
                    width: parent.width
                    text: row.state.line
                    font.pixelSize: Theme.small
                    color: Theme.quiet
                    wrapMode: Text.Wrap
                }
            }
            Words {
                text: row.state.status
                font.pixelSize: Theme.small
                color: row.state.allowed ? Theme.quiet : Theme.alarm
            }
            PushButton {
                Layout.minimumWidth: 84
                text: row.state.button
                Accessible.name: text + " " + row.state.name
                onClicked: list.pressed(row.index)
            }
        }
    }
}
