pragma Singleton

import QtQuick

// The keys that walk through a list, and those for the menu of what the keyboard is in.
QtObject {
    // Whether the key is one of them; if so, `walk` is called with the number of rows to go down.
    // Shift and Control are no part of them, unless what is selected is more than where the keyboard is.
    function move(event, rowsOfPage: int, walk, several = false): bool {
        const page = Math.max(1, rowsOfPage);
        const all = 1e9;
        const steps = {
            [Qt.Key_Up]: -1,
            [Qt.Key_Down]: 1,
            [Qt.Key_Home]: -all,
            [Qt.Key_End]: all,
            [Qt.Key_PageUp]: -page,
            [Qt.Key_PageDown]: page
        };
        if (!(event.key in steps) || event.modifiers & ~(Qt.KeypadModifier | (several ? Qt.ShiftModifier | Qt.ControlModifier : 0)))
            return false;
        walk(steps[event.key]);
        return true;
    }
    // Whether the key types a letter that begins a word: Escape and Delete have a text as well.
    function isLetter(event): bool {
        return /^[^\s\x00-\x1f\x7f]/.test(event.text) && !(event.modifiers & ~Qt.ShiftModifier);
    }
    // Whether the key asks for what the right button shows.
    function isMenu(event): bool {
        return event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
    }
}
