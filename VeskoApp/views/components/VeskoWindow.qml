pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// A window of the program: its colours, the keys that work in every window, and the menu. It knows
// where the keyboard was before a menu or a sheet took it.
Window {
    id: window

    required property var session
    required property var delegate
    readonly property alias menu: appMenu
    property Item home // has the keyboard at first, and when what had it before is gone
    property Item before

    // Whether a menu or a sheet has the keyboard.
    function isTaken() {
        let item = activeFocusItem;
        while (item && item !== T.Overlay.overlay)
            item = item.parent;
        return item !== null;
    }
    // Once a menu or a sheet is gone.
    function giveBack() {
        if (!isTaken())
            (before ?? home)?.forceActiveFocus(Qt.PopupFocusReason);
    }

    color: Theme.window
    onActiveChanged: if (active && !before && !isTaken()) home?.forceActiveFocus(Qt.ActiveWindowFocusReason)
    onActiveFocusItemChanged: if (activeFocusItem && activeFocusItem !== contentItem && !isTaken()) before = activeFocusItem

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
