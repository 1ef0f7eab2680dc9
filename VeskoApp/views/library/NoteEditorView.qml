pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vesko.Views

// One note: its title, what can be done with it, its text and its original recordings.
Item {
    id: view

    required property var modelData // the NoteEditor
    required property var capture
    required property var library
    readonly property var editor: modelData
    readonly property bool copied: library.copiedNoteID === editor.noteID
    // The column of what is read: as wide as the eye finds the next line, in the middle of the rest.
    readonly property int column: Math.min(width - 72, 720)
    readonly property int margin: Math.max(40, Math.round((width - column) / 2))

    // Goes on after that text, which is the first of the note.
    function type(text) {
        body.insert(0, text);
        body.forceActiveFocus(Qt.OtherFocusReason);
    }
    function rename() {
        if (editor.trashed)
            return;
        title.forceActiveFocus(Qt.ShortcutFocusReason);
        title.selectAll();
    }
    function askToTrash() {
        if (editor.trashed)
            confirmDelete.get().open();
        else
            confirmTrash.get().open();
    }

    T.TextField {
        id: title

        x: view.margin
        y: 14
        width: view.column
        height: 42
        readOnly: view.editor.trashed
        selectByMouse: true
        text: view.editor.title
        placeholderText: view.editor.titlePrompt
        color: Theme.text
        placeholderTextColor: Theme.quiet
        selectionColor: Theme.accent
        selectedTextColor: Theme.accentInk
        font.family: Theme.family
        font.pixelSize: Theme.title
        font.weight: Font.DemiBold
        verticalAlignment: TextInput.AlignVCenter
        Accessible.role: Accessible.EditableText
        Accessible.name: qsTranslate("Vesko", "Note title")
        // A long one is read from its beginning.
        onTextChanged: if (!activeFocus) cursorPosition = 0
        onActiveFocusChanged: if (!activeFocus) cursorPosition = 0
        onTextEdited: view.editor.title = text
        onAccepted: body.forceActiveFocus(Qt.TabFocusReason)
        Keys.onPressed: event => {
            event.accepted = ListKeys.isMenu(event);
            if (event.accepted)
                titleMenu.open();
        }

        Text {
            anchors.fill: parent
            visible: title.length === 0 && title.preeditText.length === 0
            text: title.placeholderText
            font: title.font
            color: title.placeholderTextColor
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 2
            color: Theme.accent
            visible: title.activeFocus
        }
        TextMenu {
            id: titleMenu

            editor: title
        }
    }

    RowLayout {
        id: actions

        x: view.margin - 10
        width: view.column + 22
        anchors.top: title.bottom
        anchors.topMargin: 6
        spacing: 2

        Picker {
            id: project

            readonly property var ids: [""].concat(view.library.projects.map(row => row.id))

            Layout.maximumWidth: 200
            name: qsTranslate("Vesko", "Project")
            iconName: "folder"
            flat: true
            enabled: !view.editor.trashed
            choices: [qsTranslate("Vesko", "No project")].concat(view.library.projects.map(row => row.name))
            currentIndex: Math.max(0, ids.indexOf(view.editor.projectID))
            onActivated: index => view.library.selected.assign(ids[index])
        }
        PushButton {
            visible: !view.editor.trashed
            text: qsTranslate("Vesko", "Add voice")
            iconName: "microphone"
            flat: true
            enabled: view.library.canRecord
            onClicked: view.capture.recordNote(true)
        }
        Words {
            Layout.fillWidth: true
            Layout.leftMargin: 8
            text: view.editor.trashed ? qsTranslate("Vesko", "This note is in the Trash")
                                      : view.editor.saved ? qsTranslate("Vesko", "Saved on this Mac") : ""
            font.pixelSize: Theme.small
            color: Theme.quiet
            wrapMode: Text.Wrap
        }
        IconButton {
            name: view.copied ? qsTranslate("Vesko", "Note copied") : qsTranslate("Vesko", "Copy note")
            help: view.copied ? name : qsTranslate("Vesko", "Copy note (⌘C)")
            iconName: view.copied ? "check" : "copy"
            ink: view.copied ? Theme.accent : Theme.quiet
            onClicked: view.library.copyNote()
        }
        IconButton {
            id: more

            name: qsTranslate("Vesko", "Note actions")
            iconName: "more"
            Accessible.role: Accessible.ButtonMenu
            onClicked: {
                forceActiveFocus(Qt.OtherFocusReason);
                noteMenu.get().popup(more, 0, height + 4);
            }
        }
    }

    Item {
        id: matches

        readonly property string query: view.library.query.trim()

        x: view.margin
        width: view.column + 10
        anchors.top: actions.bottom
        height: childrenRect.height

        Repeater {
            model: matches.query ? 1 : 0

            MatchBar {
                width: matches.width
                text: body
                page: page
                query: matches.query
            }
        }
    }

    ScrollPage {
        id: page

        anchors.top: matches.bottom
        anchors.topMargin: 8
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        contentHeight: recordings.visible ? recordings.y + recordings.height + 32 : body.height + 40

        T.TextArea {
            id: body

            x: view.margin
            width: view.column
            height: Math.max(contentHeight + 32,
                             page.height - (recordings.visible ? recordings.height + 56 : 40))
            topPadding: 8
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            readOnly: view.editor.trashed
            selectByMouse: true
            persistentSelection: true
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentInk
            font.family: Theme.family
            font.pixelSize: 15
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTranslate("Vesko", "Note text")
            Accessible.multiLine: true
            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.onPressed: event => {
                if (event.matches(StandardKey.Copy) && body.selectedText.length === 0) {
                    view.library.copyNote();
                    event.accepted = true;
                } else if (ListKeys.isMenu(event)) {
                    bodyMenu.open();
                    event.accepted = true;
                }
            }
            onCursorRectangleChanged: if (activeFocus) page.reveal(body, cursorRectangle)

            Text {
                y: body.topPadding
                visible: body.length === 0 && body.preeditText.length === 0
                text: qsTranslate("Vesko", "Note text")
                font: body.font
                color: Theme.quiet
                Accessible.ignored: true
            }
            TextMenu {
                id: bodyMenu

                editor: body
            }
            EditedText {
                id: edited

                document: body.textDocument
                editor: view.editor
                Component.onCompleted: attach()
            }
            Connections {
                property bool here: false

                function onMerging(position) {
                    here = body.cursorPosition === position && body.selectedText.length === 0;
                }
                function onMerged(position) {
                    if (here)
                        body.cursorPosition = position;
                }

                target: view.editor
            }
        }

        Section {
            id: recordings

            anchors.top: body.bottom
            anchors.topMargin: 16
            x: view.margin
            width: view.column
            visible: view.editor.recordingCount > 0
            title: qsTranslate("Vesko", "Original recordings")
            last: true

            Repeater {
                model: view.editor.recordings

                RecordingRow {
                    width: recordings.width
                    library: view.library
                    trashed: view.editor.trashed
                    idle: view.library.canRecord && !view.capture.recording
                }
            }
        }
    }

    OnDemand {
        id: noteMenu

        PopupMenu {
            title: qsTranslate("Vesko", "Note actions")

            MenuRow {
                visible: !view.editor.trashed
                height: visible ? implicitHeight : 0
                text: qsTranslate("Vesko", "Copy text")
                keys: "Ctrl+C"
                onTriggered: view.library.copyNote()
            }
            MenuRow {
                visible: !view.editor.trashed
                height: visible ? implicitHeight : 0
                text: qsTranslate("Vesko", "Export Markdown…")
                onTriggered: view.library.chooseExport(view.Window.window)
            }
            MenuRow {
                visible: !view.editor.trashed
                height: visible ? implicitHeight : 0
                parts: true
            }
            MenuRow {
                text: view.editor.trashed ? qsTranslate("Vesko", "Restore note") : qsTranslate("Vesko", "Move to Trash…")
                keys: view.editor.trashed ? "" : "Del"
                destructive: !view.editor.trashed
                onTriggered: view.editor.trashed ? view.library.selected.restore() : confirmTrash.get().open()
            }
            MenuRow {
                visible: view.editor.trashed
                height: visible ? implicitHeight : 0
                text: qsTranslate("Vesko", "Delete permanently…")
                keys: "Del"
                destructive: true
                onTriggered: confirmDelete.get().open()
            }
        }
    }

    OnDemand {
        id: confirmTrash

        Sheet {
            title: qsTranslate("Vesko", "Move this note to Trash?")
            text: qsTranslate("Vesko", "You can restore the note and its recordings from Trash.")
            agreeText: qsTranslate("Vesko", "Move to Trash")
            destructive: true
            onAccepted: view.library.selected.trash()
        }
    }
    OnDemand {
        id: confirmDelete

        Sheet {
            title: qsTranslate("Vesko", "Delete this note and its recordings permanently?")
            text: qsTranslate("Vesko", "This cannot be undone.")
            agreeText: qsTranslate("Vesko", "Delete permanently")
            destructive: true
            irrevocable: true
            onAccepted: view.library.selected.deletePermanently()
        }
    }
    Connections {
        function onExportPathWanted() {
            exporter.get().open();
        }

        target: view.library
    }
    OnDemand {
        id: exporter

        Sheet {
            id: sheet

            property bool replaces: false

            // What is there may have changed since the last time, with the path the same.
            function look() {
                replaces = view.library.replacesFile(path.text);
            }

            title: qsTranslate("Vesko", "Export Markdown…")
            text: replaces ? qsTranslate("Vesko", "The file that is there will be replaced.") : ""
            agreeText: qsTranslate("Vesko", "Save")
            canAgree: path.text.trim().length > 0
            onAccepted: view.library.exportNote(path.text)
            onAboutToShow: {
                path.text = view.library.exportPath();
                look();
            }
            onOpened: {
                path.forceActiveFocus();
                path.selectAll();
            }

            TextBox {
                id: path

                width: sheet.availableWidth
                name: qsTranslate("Vesko", "File")
                onTextChanged: sheet.look()
                onAccepted: if (sheet.canAgree) sheet.accept()
            }
        }
    }
}
