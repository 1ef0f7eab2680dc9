pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vesko.Views

// How often a text holds what is searched for, with the ways to the next and the one before; in the
// text itself it is marked.
RowLayout {
    id: bar

    required property var text // the text area
    required property var page // in which it scrolls
    required property string query
    property int count: 0
    property int number: 0 // of the one that is selected; 0 for none

    // Marking it is a change of the text, too.
    function look() {
        const before = count;
        count = found.count();
        if (count !== before || !text.selectedText)
            number = 0;
    }
    function go(to) {
        if (to.length === 0)
            return;
        text.select(to[0], to[1]);
        page.reveal(text, text.positionToRectangle(to[0]));
        number = to[2];
    }
    function next() {
        go(found.next(text.selectedText ? text.selectionEnd : text.cursorPosition));
    }
    function previous() {
        go(found.previous(text.selectedText ? text.selectionStart : text.cursorPosition));
    }

    spacing: 2
    Component.onCompleted: look()

    Announcement {
        text: bar.number > 0 ? words.text : ""
    }
    Words {
        id: words

        Layout.fillWidth: true
        text: bar.count === 0 ? qsTranslate("Vesko", "Not in this text")
            : bar.number === 0 ? qsTranslate("Vesko", "Matches in this text: %1").arg(bar.count)
            : qsTranslate("Vesko", "Match %1 of %2").arg(bar.number).arg(bar.count)
        font.pixelSize: Theme.small
        color: Theme.quiet
        Accessible.role: Accessible.StatusBar
    }
    IconButton {
        name: qsTranslate("Vesko", "Previous match")
        help: name + " (Shift+F3)"
        iconName: "up"
        enabled: bar.count > 0
        onClicked: bar.previous()
    }
    IconButton {
        name: qsTranslate("Vesko", "Next match")
        help: name + " (F3)"
        iconName: "chevron"
        enabled: bar.count > 0
        onClicked: bar.next()
    }
    Shortcut {
        sequence: "F3"
        onActivated: bar.next()
    }
    Shortcut {
        sequence: "Shift+F3"
        onActivated: bar.previous()
    }
    FoundText {
        id: found

        document: bar.text.textDocument
        query: bar.query
        colour: Theme.found
        onQueryChanged: {
            bar.look();
            bar.number = 0;
        }
    }
    Connections {
        target: bar.text
        function onTextChanged() {
            bar.look();
        }
    }
}
