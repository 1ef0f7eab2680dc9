pragma ComponentBehavior: Bound

import QtQuick

// Says to a screen reader, once, what changes elsewhere than where the keyboard is. Nothing of it can
// be seen or found. Its lines take turns, so that none is overwritten before it is read out.
Item {
    id: announcement

    property string text
    readonly property list<Line> lines: [first, second, third, fourth]
    property int turn: 0
    property bool ready: false // what is there from the beginning is no news

    function tell(words: string) {
        if (!words)
            return;
        turn = (turn + 1) % lines.length;
        const line = lines[turn];
        line.visible = false;
        line.text = words;
        line.visible = true;
    }

    Component.onCompleted: ready = true
    onTextChanged: if (ready) tell(text)

    Line {
        id: first
    }
    Line {
        id: second
    }
    Line {
        id: third
    }
    Line {
        id: fourth
    }

    component Line: Item {
        property string text

        visible: false
        Accessible.role: Accessible.Notification
        Accessible.name: text
    }
}
