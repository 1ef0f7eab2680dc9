pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// The notes of a place, newest change first, with the search above them.
Item {
    id: root

    required property var library
    required property var storage
    readonly property alias rows: list

    signal noteWanted
    signal renameWanted // of the selected note, and so with
    signal trashWanted
    signal exportWanted

    Words {
        id: heading

        x: 20
        y: 24
        width: parent.width - noteCount.width - 48
        text: root.library.listTitle
        font.pixelSize: Theme.heading
        font.weight: Font.DemiBold
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }
    Words {
        id: noteCount

        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.baseline: heading.baseline
        visible: root.library.canCreate
        text: root.library.noteCount.toLocaleString(Qt.locale(), "f", 0)
        color: Theme.quiet
    }
    TextBox {
        id: search

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 14
        y: 58
        iconName: "search"
        enabled: root.library.canCreate
        placeholderText: qsTranslate("Vesko", "Search notes and transcripts")

        onTextEdited: {
            root.library.query = text;
            typed.restart();
        }
        Keys.onEscapePressed: event => {
            event.accepted = text.length > 0;
            root.library.query = "";
        }
        Keys.onDownPressed: {
            list.forceActiveFocus(Qt.TabFocusReason);
            if (list.currentIndex < 0 && list.count > 0)
                list.select(0, 0);
        }

        Binding on text {
            value: root.library.query
        }
        Shortcut {
            sequence: "Ctrl+F"
            onActivated: {
                search.forceActiveFocus(Qt.ShortcutFocusReason);
                search.selectAll();
            }
        }
    }

    Timer {
        id: typed

        interval: 500
        onTriggered: found.tell(root.library.query ? qsTranslate("Vesko", "Notes found: %1").arg(root.library.noteCount) : "")
    }
    Announcement {
        id: found
    }
    ListView {
        id: list

        property int walked: -1 // where the keyboard is, if it went on alone

        // With Control the keyboard goes alone, and what is selected stays.
        function move(by, modifiers) {
            const to = Math.max(0, Math.min(count - 1, currentIndex + by));
            if (modifiers & Qt.ControlModifier)
                walked = to;
            else
                select(to, modifiers);
        }
        function select(row, modifiers) {
            walked = -1;
            root.library.selectRow(row, modifiers);
        }
        function toggle() {
            const here = currentIndex;
            root.library.selectRow(here, Qt.ControlModifier);
            walked = here;
        }
        // Of all that are selected, or of that row if it isn't.
        function showMenu(row: int, at: point) {
            if (row < 0)
                return;
            if (!itemAtIndex(row)?.chosen)
                select(row, 0);
            forceActiveFocus(Qt.MouseFocusReason);
            menu.get().popup(list, at.x, at.y);
        }

        anchors.top: search.bottom
        anchors.topMargin: 10
        anchors.bottom: emptyTrash.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        clip: true
        spacing: 2
        bottomMargin: 12
        interactive: !held.active // a mouse drags rows, not the list
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: count > 0
        keyNavigationEnabled: false
        model: root.library.notes
        currentIndex: walked < 0 ? root.library.selectedRow : walked
        onCountChanged: walked = -1
        onActiveFocusChanged: if (!activeFocus) walked = -1
        highlightMoveDuration: 0
        Accessible.role: Accessible.List
        Accessible.name: root.library.listTitle
        T.ScrollBar.vertical: ScrollMark { }

        Keys.onPressed: event => {
            if (ListKeys.move(event, Math.floor(height / 58) - 1, by => move(by, event.modifiers), true)) {
                event.accepted = true;
                return;
            }
            if (ListKeys.isMenu(event))
                showMenu(currentIndex, mapFromItem(currentItem, 30, currentItem?.height ?? 0));
            else if (event.matches(StandardKey.Copy))
                root.library.copyNote();
            else if (event.matches(StandardKey.Undo) && root.library.selected.undoText)
                root.library.selected.undo();
            else if (event.matches(StandardKey.SelectAll))
                root.library.selectAll();
            else if (event.key === Qt.Key_Escape && root.library.selected.count > 1)
                select(currentIndex, 0);
            else if (event.matches(StandardKey.Delete))
                root.trashWanted();
            else if (event.key === Qt.Key_F2)
                root.renameWanted();
            else
                return;
            event.accepted = true;
        }

        PointHandler {
            id: held

            acceptedDevices: PointerDevice.Mouse
        }
        DragHandler {
            target: null
            acceptedDevices: PointerDevice.Mouse
            onActiveChanged: {
                const from = centroid.pressPosition;
                if (active)
                    root.library.dragRow(list.indexAt(from.x, from.y));
            }
        }

        delegate: ListRow {
            id: row

            required property int index
            required property string title
            required property var model
            property int modifiers: 0 // of the press that a click began with

            width: ListView.view.width
            implicitHeight: 56
            name: title
            detail: row.model.detail
            focusPolicy: Qt.NoFocus
            Accessible.focusable: true
            chosen: row.model.chosen
            keyboardHere: list.activeFocus && ListView.isCurrentItem
            onClicked: {
                list.select(index, row.modifiers);
                list.forceActiveFocus(Qt.MouseFocusReason);
                row.modifiers = 0;
            }
            onCanceled: row.modifiers = 0
            Keys.onSpacePressed: event => {
                event.accepted = event.modifiers === Qt.ControlModifier;
                if (event.accepted)
                    list.toggle();
            }

            MouseArea {
                anchors.fill: parent
                acceptedButtons: Qt.LeftButton | Qt.RightButton
                onPressed: mouse => {
                    row.modifiers = mouse.modifiers;
                    mouse.accepted = mouse.button === Qt.RightButton;
                }
                onClicked: mouse => list.showMenu(row.index, mapToItem(list, mouse.x, mouse.y))
            }

            contentItem: RowContent {
                model: row.model
                chosen: row.chosen
            }
        }
    }

    OnDemand {
        id: menu

        PopupMenu {
            id: rows

            readonly property bool one: root.library.selected.count === 1
            readonly property bool trashed: root.library.showingTrash

            title: qsTranslate("Vesko", "Note actions")

            NoteRow {
                visible: rows.one && !rows.trashed
                text: qsTranslate("Vesko", "Copy text")
                keys: "Ctrl+C"
                onTriggered: root.library.copyNote()
            }
            NoteRow {
                visible: !rows.trashed
                text: qsTranslate("Vesko", "Export Markdown…")
                onTriggered: root.exportWanted()
            }
            NoteRow {
                visible: rows.trashed
                text: rows.one ? qsTranslate("Vesko", "Restore note") : qsTranslate("Vesko", "Restore notes")
                onTriggered: root.library.selected.restore()
            }
            NoteRow {
                text: rows.trashed ? qsTranslate("Vesko", "Delete permanently…") : qsTranslate("Vesko", "Move to Trash…")
                keys: "Del"
                destructive: true
                onTriggered: root.trashWanted()
            }
        }
    }

    EmptyTrash {
        id: emptyTrash

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: visible ? 12 : 0
        height: visible ? implicitHeight : 0
        visible: root.library.showingTrash && root.library.noteCount > 0
        storage: root.storage
    }

    Repeater {
        model: root.library.opening ? 1 : 0

        Working {
            anchors.verticalCenter: list.verticalCenter
            anchors.horizontalCenter: root.horizontalCenter
            text: root.library.statusLine
        }
    }
    Repeater {
        model: root.library.emptyState ? [root.library.emptyState] : []

        Column {
            id: empty

            required property var modelData

            anchors.verticalCenter: list.verticalCenter
            anchors.horizontalCenter: root.horizontalCenter
            width: root.width - 60
            spacing: 8

            Words {
                width: parent.width
                text: empty.modelData.title
                font.weight: Font.DemiBold
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            Words {
                width: parent.width
                text: empty.modelData.text
                color: Theme.quiet
                lineHeight: Theme.lineHeight
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
            Item {
                width: 1
                height: 4
            }
            PushButton {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: text.length > 0
                text: empty.modelData.button
                onClicked: if (empty.modelData.makesNote) root.noteWanted(); else root.library.fillEmptyState()
            }
        }
    }

    component NoteRow: MenuRow {
        height: visible ? implicitHeight : 0
    }
    component RowContent: Item {
        id: content

        required property var model // gone before this is, when its row goes
        required property bool chosen

        // What was searched for, in the look of what is found.
        function asMarked(html) {
            return (html ?? "").replace(/<b>/g, "<b><font color=\"" + Theme.accentName + "\">").replace(/<\/b>/g, "</font></b>");
        }

        Icon {
            x: 2
            y: 11
            name: content.model?.iconName ?? ""
            color: content.chosen ? Theme.accent : Theme.quiet
            size: 16
        }
        RowText {
            x: 29
            y: 9
            width: project.x - x - (project.width > 0 ? 8 : 0)
            text: content.asMarked(content.model?.markedTitle)
            font.pixelSize: Theme.body
            font.weight: Font.Medium
            color: Theme.text
        }
        RowText {
            id: project

            anchors.right: parent.right
            y: 11
            width: Math.min(implicitWidth, parent.width / 3)
            text: content.model?.project ?? ""
            textFormat: Text.PlainText
        }
        RowText {
            x: 29
            y: 30
            width: parent.width - x
            text: [content.model?.status, content.model?.moment, content.asMarked(content.model?.markedWords)].filter(part => part).join(" · ")
        }
    }
    // What is the user's own may be longer than a row.
    component RowText: Text {
        readonly property bool mayBeCut: true

        font.family: Theme.family
        font.pixelSize: Theme.small
        color: Theme.quiet
        elide: Text.ElideRight
        textFormat: Text.StyledText
        Accessible.ignored: true
    }
}
