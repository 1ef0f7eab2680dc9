pragma ComponentBehavior: Bound

import QtQuick

// Says to a screen reader, once, what changes elsewhere than where the keyboard is. Nothing of it can
// be seen or found. Two lines take turns, so that what is still to be read out isn't overwritten.
Item {
    id: announcement

    property string text
    property Line line: second
    property bool ready: false // what is there from the beginning is no news

    Component.onCompleted: ready = true
    onTextChanged: if (ready) tell(text)

    function tell(text: string) {
        if (!text)
            return;
        line = line === first ? second : first;
        line.visible = false;
        line.text = text;
        line.visible = true;
    }

    Line {
        id: first
    }
    Line {
        id: second
    }

    component Line: Item {
        property string text

        visible: false
        Accessible.role: Accessible.Notification
        Accessible.name: text
    }
}
