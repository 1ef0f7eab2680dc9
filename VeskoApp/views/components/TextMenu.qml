pragma ComponentBehavior: Bound

import QtQuick

// The menu behind the right button in a text, and the menu key.
Item {
    id: item

    required property var editor

    anchors.fill: parent

    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: point => menu.get().popup(item, point.position)
    }
    function open() {
        menu.get().popup(item, editor.cursorRectangle.x, editor.cursorRectangle.y + editor.cursorRectangle.height);
    }

    OnDemand {
        id: menu

        PopupMenu {
            MenuRow {
                text: qsTranslate("Vesko", "Undo")
                keys: "Ctrl+Z"
                enabled: item.editor.canUndo
                onTriggered: item.editor.undo()
            }
            MenuRow {
                text: qsTranslate("Vesko", "Redo")
                keys: "Ctrl+Shift+Z"
                enabled: item.editor.canRedo
                onTriggered: item.editor.redo()
            }
            MenuRow { parts: true }
            MenuRow {
                text: qsTranslate("Vesko", "Cut")
                keys: "Ctrl+X"
                enabled: item.editor.selectedText.length > 0 && !item.editor.readOnly
                onTriggered: item.editor.cut()
            }
            MenuRow {
                text: qsTranslate("Vesko", "Copy")
                keys: "Ctrl+C"
                enabled: item.editor.selectedText.length > 0
                onTriggered: item.editor.copy()
            }
            MenuRow {
                text: qsTranslate("Vesko", "Paste")
                keys: "Ctrl+V"
                enabled: item.editor.canPaste
                onTriggered: item.editor.paste()
            }
            MenuRow {
                text: qsTranslate("Vesko", "Select All")
                keys: "Ctrl+A"
                onTriggered: item.editor.selectAll()
            }
        }
    }
}
