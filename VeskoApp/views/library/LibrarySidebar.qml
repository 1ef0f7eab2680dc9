pragma ComponentBehavior: Bound

import QtQuick

// The library's places, and what the program is doing.
Rectangle {
    id: sidebar

    required property var capture
    required property var library
    required property var delegate
    required property var menu

    color: Theme.sidebar

    Item {
        id: head

        width: parent.width
        height: Math.max(96, motto.y + motto.height + 4)

        LevelMark {
            id: mark

            x: 20
            y: 25
            recording: sidebar.capture.recording
            level: sidebar.capture.level
        }
        Words {
            anchors.left: mark.right
            anchors.leftMargin: 10
            anchors.verticalCenter: mark.verticalCenter
            text: "Vesko"
            font.pixelSize: Theme.heading
            font.weight: Font.DemiBold
        }
        IconButton {
            id: menuButton

            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: mark.verticalCenter
            name: qsTranslate("Vesko", "Menu")
            iconName: "menu"
            focusPolicy: Qt.TabFocus // the menu is also about the text that the keyboard is in
            Accessible.role: Accessible.ButtonMenu
            onClicked: sidebar.menu.open(menuButton)

            Shortcut {
                sequence: "F10"
                onActivated: sidebar.menu.open(menuButton)
            }
        }
        Column {
            id: motto

            x: 20
            y: 56
            width: parent.width - 32
            spacing: 3

            Words {
                width: parent.width
                text: qsTranslate("Vesko", "Your voice, kept close")
                font.pixelSize: Theme.small
                font.weight: Font.Medium
                wrapMode: Text.Wrap
            }
            Words {
                width: parent.width
                visible: sidebar.delegate.shortcut.offered
                text: qsTranslate("Vesko", "%1 to dictate").arg(sidebar.delegate.shortcut.words)
                font.pixelSize: Theme.small
                color: Theme.quiet
                wrapMode: Text.Wrap
            }
        }
    }

    ScrollPage {
        id: page

        anchors.top: head.bottom
        anchors.topMargin: 8
        anchors.bottom: foot.top
        width: parent.width
        contentHeight: places.height

        Column {
            id: places

            // The keyboard goes so many rows down, to the first or the last one at most.
            function move(by) {
                const rows = Array.from(children).filter(child => child instanceof ListRow);
                const at = rows.findIndex(row => row.activeFocus);
                rows[Math.max(0, Math.min(rows.length - 1, at + by))].forceActiveFocus(Qt.TabFocusReason);
            }

            x: 10
            width: parent.width - 20
            spacing: 2
            Accessible.role: Accessible.List
            Accessible.name: qsTranslate("Vesko", "Library")
            Keys.onPressed: event => event.accepted = ListKeys.move(event, Math.floor(page.height / 36) - 1, by => move(by))

            ListRow {
                width: parent.width
                text: qsTranslate("Vesko", "All notes")
                iconName: "notes"
                chosen: !sidebar.library.showingTrash && !sidebar.library.selectedProjectID
                onClicked: sidebar.library.showAllNotes()
            }
            Item {
                width: parent.width
                height: 44

                Words {
                    x: 10
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 8
                    text: qsTranslate("Vesko", "Projects")
                    font.pixelSize: Theme.small
                    font.weight: Font.DemiBold
                    color: Theme.quiet
                    Accessible.role: Accessible.Heading
                }
                IconButton {
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                    implicitHeight: 30
                    implicitWidth: 30
                    name: qsTranslate("Vesko", "New project")
                    iconName: "plus"
                    enabled: sidebar.library.canCreate
                    onClicked: dialog.get().ask("", "")
                }
            }
            Repeater {
                model: sidebar.library.projects

                ListRow {
                    id: project

                    required property var modelData

                    function take() {
                        sidebar.library.selected.dropOnProject(modelData.id);
                    }

                    width: places.width
                    rightPadding: 40
                    text: modelData.name
                    iconName: "folder"
                    chosen: sidebar.library.selectedProjectID === modelData.id
                    onClicked: sidebar.library.showProject(modelData.id)
                    Keys.onPressed: event => {
                        event.accepted = true;
                        if (ListKeys.isMenu(event))
                            projectMenu.get().popup(project, 20, height);
                        else if (event.key === Qt.Key_F2)
                            dialog.get().ask(modelData.id, modelData.name);
                        else
                            event.accepted = false;
                    }

                    TapHandler {
                        acceptedButtons: Qt.RightButton
                        onTapped: point => projectMenu.get().popup(project, point.position)
                    }
                    IconButton {
                        anchors.right: parent.right
                        anchors.rightMargin: 2
                        anchors.verticalCenter: parent.verticalCenter
                        implicitWidth: 30
                        implicitHeight: 30
                        visible: project.hovered || project.chosen || project.activeFocus
                        name: qsTranslate("Vesko", "Rename project")
                        iconName: "pencil"
                        focusPolicy: Qt.NoFocus // by keys it is F2, or the menu
                        onClicked: dialog.get().ask(project.modelData.id, project.modelData.name)
                    }
                    OnDemand {
                        id: projectMenu

                        PopupMenu {
                            MenuRow {
                                text: qsTranslate("Vesko", "Rename project")
                                keys: "F2"
                                onTriggered: dialog.get().ask(project.modelData.id, project.modelData.name)
                            }
                        }
                    }
                }
            }
            Item {
                width: 1
                height: 14
            }
            ListRow {
                function take() {
                    sidebar.library.selected.dropOnTrash();
                }

                width: parent.width
                text: qsTranslate("Vesko", "Trash")
                iconName: "trash"
                chosen: sidebar.library.showingTrash
                onClicked: sidebar.library.showTrash()
            }
            ListRow {
                width: parent.width
                text: qsTranslate("Vesko", "Settings")
                iconName: "settings"
                onClicked: sidebar.delegate.openSettings()
            }
            ListRow {
                width: parent.width
                text: qsTranslate("Vesko", "Dictionary")
                iconName: "book"
                onClicked: sidebar.delegate.openDictionary()
            }
        }
    }

    // Notes are dropped on the rows that take them.
    DropArea {
        id: drop

        property var row: null

        function look(x, y) {
            const at = mapToItem(places, x, y);
            const below = places.childAt(at.x, at.y);
            row = below?.["take"] ? below : null;
        }

        anchors.fill: page
        keys: ["application/x-vesko-notes"]
        onPositionChanged: drag => look(drag.x, drag.y)
        onExited: row = null
        onDropped: drop => {
            drop.accepted = row !== null;
            row?.take();
            row = null;
        }

        Rectangle {
            visible: drop.row !== null
            x: places.x
            y: drop.row ? drop.row.mapToItem(drop, 0, 0).y : 0
            width: places.width
            height: drop.row?.height ?? 0
            radius: Theme.corner
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
        }
    }

    Words {
        id: foot

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        leftPadding: 20
        rightPadding: 16
        topPadding: 12
        bottomPadding: 16
        text: sidebar.library.statusLine
        font.pixelSize: Theme.small
        color: sidebar.capture.recording ? Theme.accent : Theme.quiet
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StatusBar
    }

    OnDemand {
        id: dialog

        Sheet {
            id: sheet

            property string renameID

            function ask(id, name) {
                renameID = id;
                projectName.text = name;
                open();
                projectName.selectAll();
                projectName.forceActiveFocus();
            }

            title: renameID ? qsTranslate("Vesko", "Rename project") : qsTranslate("Vesko", "New project")
            agreeText: qsTranslate("Vesko", "Save")
            onAccepted: sidebar.library.saveProject(renameID, projectName.text)

            TextBox {
                id: projectName

                width: sheet.availableWidth
                placeholderText: qsTranslate("Vesko", "Project name")
                onAccepted: sheet.accept()
            }
        }
    }
}
