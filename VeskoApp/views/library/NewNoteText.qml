pragma ComponentBehavior: Bound

import QtQuick

// Has the keyboard while a new note is being made. What is typed meanwhile is that note's, and
// would otherwise be written into the text that had the keyboard before.
TextEdit {
    id: begun

    required property var library
    required property Item before // what has the keyboard, or had it before a menu
    property int coming: 0
    property Item former: null

    signal made(text: string) // what was typed so far
    signal failed(former: Item)

    width: 0
    height: 0
    opacity: 0
    textFormat: TextEdit.PlainText
    Accessible.ignored: true // who listens is told of the note's own text, a moment later

    Connections {
        target: begun.library
        function onNewNoteBegun() {
            if (begun.coming++ > 0)
                return;
            begun.former = begun.before;
            begun.forceActiveFocus(Qt.OtherFocusReason);
        }
        function onNewNoteEnded(isMade) {
            if (--begun.coming > 0)
                return;
            // Whoever has gone on to something else meanwhile stays there.
            if (isMade && (begun.focus || begun.text))
                begun.made(begun.text);
            else if (begun.activeFocus)
                begun.failed(begun.former);
            begun.clear();
        }
    }
}
