pragma ComponentBehavior: Bound

import QtQuick

// What stands in the place of a note while several are selected: how many, and what can be done
// with all of them.
Item {
    id: view

    required property var library
    readonly property var selected: library.selected
    readonly property bool trashed: library.showingTrash

    function askToTrash() {
        if (trashed)
            confirmDelete.open();
        else
            confirmTrash.open();
    }

    Column {
        anchors.centerIn: parent
        width: Math.min(360, parent.width - 80)
        spacing: 12

        Announcement {
            text: view.selected.title
        }
        Words {
            width: parent.width
            bottomPadding: 8
            text: view.selected.title
            font.pixelSize: Theme.heading
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StatusBar
        }
        Picker {
            readonly property var ids: [""].concat(view.library.projects.map(row => row.id))

            anchors.horizontalCenter: parent.horizontalCenter
            visible: !view.trashed
            name: qsTranslate("Vesko", "Move to project")
            iconName: "folder"
            displayText: name
            choices: [qsTranslate("Vesko", "No project")].concat(view.library.projects.map(row => row.name))
            currentIndex: -1
            onActivated: index => {
                currentIndex = -1;
                view.selected.assign(ids[index]);
            }
        }
        PushButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !view.trashed
            text: qsTranslate("Vesko", "Export Markdown…")
            onClicked: view.selected.chooseExport(view.Window.window)
        }
        PushButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: view.trashed
            text: qsTranslate("Vesko", "Restore notes")
            onClicked: view.selected.restore()
        }
        PushButton {
            anchors.horizontalCenter: parent.horizontalCenter
            text: view.trashed ? qsTranslate("Vesko", "Delete permanently…") : qsTranslate("Vesko", "Move to Trash…")
            destructive: true
            onClicked: view.askToTrash()
        }
    }

    Sheet {
        id: confirmTrash

        title: view.selected.trashQuestion
        text: qsTranslate("Vesko", "You can restore the notes and their recordings from Trash.")
        agreeText: qsTranslate("Vesko", "Move to Trash")
        destructive: true
        onAccepted: view.selected.trash()
    }
    Sheet {
        id: confirmDelete

        title: view.selected.removeQuestion
        text: qsTranslate("Vesko", "This cannot be undone.")
        agreeText: qsTranslate("Vesko", "Delete permanently")
        destructive: true
        irrevocable: true
        onAccepted: view.selected.deletePermanently()
    }
    Connections {
        function onExportPathWanted() {
            exporter.open();
        }

        target: view.selected
    }
    PathSheet {
        id: exporter

        title: qsTranslate("Vesko", "Export Markdown…")
        agreeText: qsTranslate("Vesko", "Save")
        fieldName: qsTranslate("Vesko", "Folder")
        exchange: view.selected
        onChosen: path => view.selected.exportTo(path)
    }
}
