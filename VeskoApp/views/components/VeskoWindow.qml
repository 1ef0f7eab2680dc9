pragma ComponentBehavior: Bound

import QtQuick

// A window of the program: its colours, the keys that work in every window, and the menu.
Window {
    id: window

    required property var session
    required property var delegate
    readonly property alias menu: appMenu

    color: Theme.window

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }
    AppMenu {
        id: appMenu

        window: window
        delegate: window.delegate
    }
}
