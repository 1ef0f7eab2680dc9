pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vesko.Views

// One of several, chosen from a list that opens below; a long list can be searched. Tells by
// activated(index) what the user chose: which one is shown is its owner's word. With `flat` it has
// no face of its own.
T.ComboBox {
    id: control

    required property string name
    property string iconName
    // Texts, or maps with their text under the key textRole. The model of the template stays empty:
    // it would choose by itself whenever that changes.
    property var choices: []
    readonly property bool searchable: rows.total > 10

    function open() {
        forceActiveFocus(Qt.OtherFocusReason); // where it comes back to
        sheet.open();
    }
    function choose(index: int) {
        sheet.close();
        if (index >= 0)
            activated(index);
    }
    // As the list does while it is closed.
    function walk(steps: int) {
        const index = Math.max(0, Math.min(rows.total - 1, currentIndex + steps));
        if (index !== currentIndex)
            activated(index);
    }

    displayText: rows.text(rows.total > 0 ? currentIndex : -1)
    implicitWidth: Math.max(120, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Theme.control
    leftPadding: iconName ? 34 : 12
    rightPadding: 30
    focusPolicy: Qt.StrongFocus
    font.family: Theme.family
    font.pixelSize: Theme.body

    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    Accessible.description: displayText
    Accessible.focusable: enabled // the bus is told in no other way that it is off
    Accessible.onPressAction: if (enabled) open()
    hoverEnabled: true
    Keys.onSpacePressed: open()
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()
    Keys.onPressed: event => {
        if (ListKeys.move(event, 10, steps => control.walk(steps))) {
            event.accepted = true;
        } else if (ListKeys.isLetter(event)) {
            event.accepted = true;
            if (searchable) {
                open();
                search.text = event.text;
            } else {
                const index = rows.nextFrom(currentIndex, event.text);
                if (index >= 0)
                    activated(index);
            }
        }
    }

    contentItem: Text {
        text: control.displayText
        font: control.font
        color: Theme.text
        opacity: control.enabled ? 1 : 0.45
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.corner
        color: control.flat ? "transparent" : Theme.field
        border.width: control.flat ? 0 : 1
        border.color: Theme.edge

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: tap.pressed || sheet.visible ? Theme.press : control.hovered ? Theme.hover : "transparent"
        }
        Icon {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: control.iconName.length > 0
            name: control.iconName
            size: 16
        }
        Icon {
            x: control.width - width - 9
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron"
            size: 14
            enabled: control.enabled
        }
        FocusRing {
            visible: control.visualFocus
        }
    }

    TapHandler {
        id: tap

        onTapped: sheet.visible ? sheet.close() : control.open()
    }
    PickerRows {
        id: rows

        choices: control.choices
        textRole: control.textRole
        query: search.text
    }
    TextMetrics {
        id: widest

        font: control.font
        text: rows.widest
    }
    T.Popup {
        id: sheet

        y: control.height + 4
        width: Math.max(control.width, 180, Math.min(420, widest.advanceWidth + 60))
        height: Math.min(implicitHeight, 340)
        implicitHeight: contentHeight + topPadding + bottomPadding
        contentHeight: list.y + list.implicitHeight
        margins: 6
        padding: 6
        focus: true
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
        // The one around the list; it takes no name for itself.
        Component.onCompleted: contentItem.parent.Accessible.name = Qt.binding(() => control.name)
        onAboutToShow: search.clear()
        onOpened: {
            list.go();
            (control.searchable ? search : list).forceActiveFocus(Qt.PopupFocusReason);
            list.positionViewAtIndex(list.currentIndex, ListView.Center);
        }
        // Unless the user has gone on elsewhere.
        onClosed: {
            const keyboard = control.Window.activeFocusItem;
            if (!keyboard || keyboard === control.Window.contentItem)
                control.forceActiveFocus(Qt.PopupFocusReason);
        }

        Item {
            anchors.fill: parent

            TextBox {
                id: search

                width: parent.width
                visible: control.searchable
                name: qsTranslate("Vesko", "Search")
                placeholderText: name
                iconName: "search"
                onTextChanged: list.go()
                Keys.forwardTo: [list]
            }
            ListView {
                id: list

                // To the first that is found, or to what is chosen.
                function go() {
                    currentIndex = search.length > 0 ? 0 : rows.rowOf(control.currentIndex);
                }

                y: search.visible ? search.height + 6 : 0
                width: parent.width
                height: parent.height - y
                implicitHeight: contentHeight
                clip: true
                model: sheet.visible ? rows : null
                keyNavigationEnabled: false
                highlightMoveDuration: 0
                boundsBehavior: Flickable.StopAtBounds
                Accessible.ignored: true
                T.ScrollBar.vertical: ScrollMark { }

                Keys.onPressed: event => {
                    const plain = event.key === Qt.Key_Home || event.key === Qt.Key_End; // those of the text
                    if (!(plain && search.activeFocus) && ListKeys.move(event, height / 32, steps => {
                        list.currentIndex = Math.max(0, Math.min(list.count - 1, list.currentIndex + steps));
                    })) {
                        event.accepted = true;
                    } else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter
                               || event.key === Qt.Key_Space && !search.activeFocus) {
                        event.accepted = true;
                        control.choose(rows.placeOf(list.currentIndex));
                    } else if (!search.activeFocus && ListKeys.isLetter(event)) {
                        const place = rows.nextFrom(rows.placeOf(list.currentIndex), event.text);
                        if (place >= 0)
                            list.currentIndex = rows.rowOf(place);
                    }
                }

                delegate: T.ItemDelegate {
                    id: row

                    required property int index
                    required property int place
                    required property string label
                    readonly property bool chosen: control.currentIndex === place

                    width: ListView.view.width
                    implicitHeight: 32
                    highlighted: ListView.isCurrentItem
                    focusPolicy: Qt.NoFocus // the keyboard stays with the list
                    Accessible.role: Accessible.ListItem
                    Accessible.name: label
                    Accessible.selected: chosen
                    Accessible.onPressAction: control.choose(place)
                    onClicked: control.choose(place)

                    contentItem: Text {
                        leftPadding: 12
                        rightPadding: 26
                        text: row.label
                        font.family: Theme.family
                        font.pixelSize: Theme.body
                        font.weight: row.chosen ? Font.DemiBold : Font.Normal
                        color: Theme.text
                        verticalAlignment: Text.AlignVCenter
                        elide: Text.ElideRight
                        textFormat: Text.PlainText
                        Accessible.ignored: true
                    }
                    background: Rectangle {
                        radius: Theme.corner
                        color: row.highlighted || row.hovered ? Theme.chosen : "transparent"

                        Icon {
                            anchors.right: parent.right
                            anchors.rightMargin: 8
                            anchors.verticalCenter: parent.verticalCenter
                            visible: row.chosen
                            name: "check"
                            color: Theme.accent
                            size: 14
                        }
                    }
                }
            }
            Words {
                y: list.y + 8
                x: 12
                visible: rows.count === 0
                text: qsTranslate("Vesko", "Nothing found")
                color: Theme.quiet
            }
        }
        background: Rectangle {
            radius: Theme.radius - 2
            color: Theme.surface
            border.color: Theme.outline
        }
    }
}
