pragma ComponentBehavior: Bound

import QtQuick

// The main window: projects, notes, and the note that is selected.
VeskoWindow {
    id: window

    required property var library
    required property var capture
    required property var exchange
    required property var storage
    required property var status

    title: "Vesko"
    width: 1120
    height: 760
    minimumWidth: 980
    minimumHeight: 680
    home: list.rows

    NewNoteText {
        library: window.library
        before: window.before
        onMade: text => editors.itemAt(0)?.type(text)
        onFailed: former => (former ?? window.home).forceActiveFocus(Qt.OtherFocusReason)
    }

    LibrarySidebar {
        id: sidebar

        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: Math.min(232, Math.max(150, Math.round(window.width * 0.24)))
        capture: window.capture
        library: window.library
        delegate: window.delegate
        menu: window.menu
    }

    NoteList {
        id: list

        anchors.left: sidebar.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: window.width < 980 ? Math.max(180, Math.round(window.width * 0.29))
                                  : Math.round(Math.min(360, 292 + Math.max(0, window.width - 1120) * 0.2))
        library: window.library
        onNoteWanted: window.delegate.newNote()
        onRenameWanted: editors.itemAt(0)?.rename()
        onTrashWanted: (several.itemAt(0) ?? editors.itemAt(0))?.askToTrash()
        onExportWanted: (several.count > 0 ? window.library.selected : window.library).chooseExport(window)
        storage: window.storage
    }

    Rectangle {
        id: line

        anchors.left: list.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: 1
        color: Theme.hairline
    }

    Item {
        anchors.left: line.right
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom

        Row {
            id: toolbar

            anchors.top: parent.top
            anchors.right: parent.right
            anchors.topMargin: 14
            anchors.rightMargin: 20
            spacing: Theme.space

            // Where there is no room for its words, its key and the menu do the same.
            PushButton {
                visible: toolbar.parent.width > 320
                text: qsTranslate("Vesko", "New note")
                help: qsTranslate("Vesko", "Create a text note")
                iconName: "plus"
                flat: true
                enabled: window.library.canCreate
                onClicked: window.delegate.newNote()
            }
            PushButton {
                text: window.library.recordText
                help: qsTranslate("Vesko", "Records into the library without pasting into another app")
                iconName: window.capture.recording ? "stop" : "microphone"
                prominent: true
                enabled: window.library.canRecord
                onClicked: window.capture.recordNote(false)
            }
        }

        Banner {
            id: banner

            anchors.top: toolbar.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.topMargin: visible ? 12 : 0
            anchors.leftMargin: 20
            anchors.rightMargin: 20
            height: visible ? implicitHeight : 0
            visible: text.length > 0
            // Why the library isn't there stands where its notes would.
            readonly property string error: window.status.errorMessage === window.library.refusal ? "" : window.status.errorMessage

            alarm: error.length > 0
            text: error || window.library.selected.undoText

            PushButton {
                visible: banner.alarm
                text: qsTranslate("Vesko", "Settings")
                flat: true
                onClicked: window.delegate.openSettings()
            }
            PushButton {
                visible: !banner.alarm
                text: qsTranslate("Vesko", "Undo")
                flat: true
                onClicked: window.library.selected.undo()
            }
            IconButton {
                visible: banner.alarm
                name: qsTranslate("Vesko", "Dismiss message")
                iconName: "close"
                ink: Theme.alarm
                onClicked: window.status.dismissError()
            }
        }

        Repeater {
            id: editors

            model: window.library.editors

            NoteEditorView {
                anchors.top: banner.bottom
                anchors.left: parent?.left
                anchors.right: parent?.right
                anchors.bottom: parent?.bottom
                capture: window.capture
                library: window.library
            }
        }

        Repeater {
            id: several

            model: window.library.selected.count > 1 ? 1 : 0

            SelectedNotesView {
                anchors.top: banner.bottom
                anchors.left: parent?.left
                anchors.right: parent?.right
                anchors.bottom: parent?.bottom
                library: window.library
            }
        }

        LibraryExchangeView {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 20
            exchange: window.exchange
            delegate: window.delegate
        }

        Repeater {
            model: window.library.canCreate && window.library.editors.length === 0 && several.count === 0 ? 1 : 0

            Column {
                anchors.centerIn: parent
                width: Math.min(360, (parent?.width ?? 0) - 80)
                spacing: 10

                LevelMark {
                    anchors.horizontalCenter: parent.horizontalCenter
                    scale: 2
                    bottomPadding: 16
                }
                Words {
                    width: parent.width
                    text: qsTranslate("Vesko", "Your thoughts, ready to use")
                    font.pixelSize: Theme.heading
                    font.weight: Font.DemiBold
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
                Words {
                    width: parent.width
                    text: qsTranslate("Vesko", "Select a note to edit its text, replay the original, or add more by voice.")
                    color: Theme.quiet
                    lineHeight: Theme.lineHeight
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
