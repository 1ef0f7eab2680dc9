pragma Singleton

import QtQuick

// The keys that walk through a list.
QtObject {
    // Whether the key is one of them; if so, `walk` is called with the number of rows to go down.
    // Shift is no part of them, unless it is `extending` what is selected.
    function move(event, rowsOfPage: int, walk, extending = false): bool {
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
        if (!(event.key in steps) || event.modifiers & ~(Qt.KeypadModifier | (extending ? Qt.ShiftModifier : 0)))
            return false;
        walk(steps[event.key]);
        return true;
    }
}
