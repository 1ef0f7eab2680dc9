pragma ComponentBehavior: Bound

import QtQuick

// The program's menu with its keys, which work in the window whether the menu is open or not. It
// opens below the item that open() is called for.
Item {
    id: root

    required property var window
    required property var delegate
    property Item textBefore // had the keyboard when the menu opened

    function open(below: Item) {
        textBefore = window.before;
        menu.get().popup(below, 0, below.height + 4);
    }
    function run(row) {
        if (row.action === "about")
            about.get().open();
        else if (row.action === "diagnose")
            diagnosis.get().open();
        else if (row.ofText)
            textBefore[row.action]();
        else
            delegate[row.action]();
    }
    // Whether that can be done, by the text that had the focus if it is of texts.
    function canRun(row) {
        if (["newNote", "exportLibrary", "importLibrary"].includes(row.action))
            return window.session.ready;
        if (!row.ofText)
            return row.title.length > 0;
        const text = textBefore;
        if (!text || text.cursorPosition === undefined)
            return false;
        switch (row.action) {
        case "undo":
            return text.canUndo;
        case "redo":
            return text.canRedo;
        case "paste":
            return text.canPaste;
        case "cut":
            return text.selectedText.length > 0 && !text.readOnly;
        case "copy":
            return text.selectedText.length > 0;
        }
        return true;
    }

    Repeater {
        model: root.delegate.menu.filter(row => row.sequence && !row.ofText)

        Item {
            id: keys

            required property var modelData

            Shortcut {
                sequence: keys.modelData.sequence
                autoRepeat: false
                onActivated: root.run(keys.modelData)
            }
        }
    }

    OnDemand {
        id: menu

        PopupMenu {
            id: rows

            title: "Vesko"

            Instantiator {
                model: root.delegate.menu
                onObjectAdded: (index, object) => rows.insertItem(index, object)
                onObjectRemoved: (index, object) => rows.removeItem(object)

                MenuRow {
                    required property var modelData

                    text: modelData.title
                    keys: modelData.keys
                    parts: !modelData.title
                    enabled: root.canRun(modelData)
                    onTriggered: root.run(modelData)
                }
            }
        }
    }

    OnDemand {
        id: diagnosis

        DiagnosisSheet {
            diagnosis: root.delegate.diagnosis
        }
    }
    OnDemand {
        id: about

        Sheet {
            id: sheet

            title: "Vesko"
            agreeText: qsTranslate("Vesko", "OK")
            cancellable: false

            TextEdit {
                id: facts

                width: sheet.availableWidth
                text: root.delegate.about
                textFormat: TextEdit.PlainText
                readOnly: true
                selectByMouse: true
                wrapMode: TextEdit.Wrap
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentInk
                font.family: Theme.family
                font.pixelSize: Theme.body
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            PushButton {
                y: facts.height + 8
                text: qsTranslate("Vesko", "Copy")
                iconName: "copy"
                flat: true
                onClicked: {
                    facts.selectAll();
                    facts.copy();
                }
            }
        }
    }
}
