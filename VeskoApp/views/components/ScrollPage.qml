pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

// What is longer than its place: scrolls, by itself too, so that the control where the keyboard is
// can be seen.
Flickable {
    id: page

    readonly property Item focused: Window.activeFocusItem

    // Makes that part of an item seen.
    function reveal(item: Item, part: rect) {
        const top = item.mapToItem(contentItem, part.x, part.y).y - 24;
        const bottom = top + part.height + 48;
        if (top < contentY)
            contentY = top < 48 ? 0 : top; // with the heading that is above the first one
        else if (bottom > contentY + height)
            contentY = Math.max(0, Math.min(contentHeight - height, bottom - height));
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    onFocusedChanged: {
        let inside = focused;
        while (inside && inside !== contentItem)
            inside = inside.parent;
        if (inside && focused.height < height)
            reveal(focused, Qt.rect(0, 0, focused.width, focused.height));
    }
    T.ScrollBar.vertical: ScrollMark { }
}
