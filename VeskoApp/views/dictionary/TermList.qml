pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// The terms, each with its switch and what can be done with it. Up and Down go through the rows,
// Tab through what is in the one where the keyboard is.
ListView {
    id: list

    required property var dictionary
    signal edited(string termID)

    clip: true
    spacing: 2
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: count > 0 && !currentItem
    highlightMoveDuration: 0
    cacheBuffer: 400
    model: dictionary.terms
    Accessible.role: Accessible.List
    Accessible.name: qsTranslate("Vesko", "Dictionary")
    T.ScrollBar.vertical: ScrollMark { }

    delegate: Item {
        id: row

        required property int index
        required property string termID
        required property string original
        required property string replacement
        required property string source
        required property bool termEnabled
        readonly property int policy: ListView.isCurrentItem ? Qt.StrongFocus : Qt.ClickFocus

        width: ListView.view.width
        height: 54
        activeFocusOnTab: ListView.isCurrentItem // on the way back it comes after its buttons
        Accessible.role: Accessible.ListItem
        Accessible.focusable: true
        Accessible.name: original + " → " + replacement
        Accessible.description: source
        Keys.onSpacePressed: use.press()
        Keys.onReturnPressed: list.edited(termID)
        Keys.onDeletePressed: list.dictionary.remove(termID)

        Rectangle {
            anchors.fill: parent
            radius: Theme.corner
            color: hover.hovered ? Theme.hover : "transparent"

            FocusRing {
                anchors.margins: 0
                radius: Theme.corner
                visible: row.activeFocus
            }
        }
        HoverHandler {
            id: hover
        }
        Column {
            anchors.left: parent.left
            anchors.leftMargin: 10
            anchors.right: controls.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            spacing: 3

            Row {
                id: pair

                width: parent.width
                spacing: 8
                opacity: row.termEnabled ? 1 : 0.6

                Text {
                    id: from

                    width: Math.min(implicitWidth, (pair.width - arrow.width - 16) / 2)
                    text: row.original
                    font.family: Theme.family
                    font.pixelSize: Theme.body
                    color: Theme.text
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    Accessible.ignored: true
                }
                Icon {
                    id: arrow

                    anchors.verticalCenter: from.verticalCenter
                    name: "arrow"
                    size: 14
                }
                Text {
                    width: Math.min(implicitWidth, pair.width - from.width - arrow.width - 16)
                    text: row.replacement
                    font.family: Theme.family
                    font.pixelSize: Theme.body
                    font.weight: Font.DemiBold
                    color: Theme.text
                    elide: Text.ElideRight
                    textFormat: Text.PlainText
                    Accessible.ignored: true
                }
            }
            Text {
                width: parent.width
                text: row.source
                font.family: Theme.family
                font.pixelSize: Theme.small
                color: Theme.quiet
                elide: Text.ElideRight
                textFormat: Text.PlainText
                Accessible.ignored: true
            }
        }
        Row {
            id: controls

            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            IconButton {
                name: qsTranslate("Vesko", "Edit %1").arg(row.original)
                iconName: "pencil"
                focusPolicy: row.policy
                onClicked: list.edited(row.termID)
            }
            IconButton {
                name: qsTranslate("Vesko", "Remove %1").arg(row.original)
                iconName: "trash"
                focusPolicy: row.policy
                onClicked: list.dictionary.remove(row.termID)
            }
            Item {
                width: 6
                height: 1
            }
            Toggle {
                id: use

                anchors.verticalCenter: parent.verticalCenter
                name: qsTranslate("Vesko", "Use term")
                help: qsTranslate("Vesko", "Use %1").arg(row.original)
                focusPolicy: row.policy
                checked: row.termEnabled
                onToggled: {
                    list.dictionary.setEnabled(row.termID, checked);
                    checked = Qt.binding(() => row.termEnabled); // what is saved is what it shows
                }
            }
        }
    }
}
