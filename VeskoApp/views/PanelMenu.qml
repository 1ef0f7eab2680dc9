import QtQuick

// The menu of the floating control, the same as that of the status item.
Rectangle {
    id: menu

    required property var panel

    width: 190
    height: rows.height + 12
    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.outline
    Accessible.role: Accessible.PopupMenu
    Accessible.name: "Vesko"

    HoverHandler {
        id: overMenu
    }
    // Whoever turns away from the menu has no use for it.
    Timer {
        interval: 1500
        running: menu.panel.menuOpen && !overMenu.hovered && !menu.panel.pointedAt
        onTriggered: menu.panel.menuOpen = false
    }
    Column {
        id: rows

        x: 6
        y: 6
        width: parent.width - 12

        PanelRow {
            text: menu.panel.capture.recording ? qsTranslate("Vesko", "Stop dictation")
                : menu.panel.capture.busy ? menu.panel.capture.phaseTitle : qsTranslate("Vesko", "Start dictation")
            enabled: menu.panel.control.orbEnabled
            onChosen: {
                menu.panel.delegate.toggleCapture();
                menu.panel.menuOpen = false; // which is the end of this menu
            }
        }
        PanelRow {
            text: qsTranslate("Vesko", "Open Vesko")
            onChosen: {
                menu.panel.delegate.openLibrary();
                menu.panel.menuOpen = false; // which is the end of this menu
            }
        }
        PanelRow {
            text: qsTranslate("Vesko", "Settings…")
            onChosen: {
                menu.panel.delegate.openSettings();
                menu.panel.menuOpen = false; // which is the end of this menu
            }
        }
        Rectangle {
            width: parent.width
            height: 1
            color: Theme.hairline
        }
        PanelRow {
            text: qsTranslate("Vesko", "Quit Vesko")
            onChosen: {
                menu.panel.delegate.quit();
                menu.panel.menuOpen = false; // which is the end of this menu
            }
        }
    }
}
