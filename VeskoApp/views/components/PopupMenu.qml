import QtQuick
import QtQuick.Templates as T

// A menu of MenuRow. The keyboard goes back to where it was when it closes.
T.Menu {
    id: menu

    implicitWidth: Math.max(180, contentWidth + leftPadding + rightPadding)
    implicitHeight: contentHeight + topPadding + bottomPadding
    contentWidth: {
        let widest = 0;
        for (let index = 0; index < count; ++index)
            widest = Math.max(widest, itemAt(index)?.implicitWidth ?? 0); // a row may be on its way
        return widest;
    }
    margins: 6
    padding: 6
    // The one that the keyboard is in; it takes no name for itself.
    Component.onCompleted: contentItem.parent.Accessible.name = Qt.binding(() => menu.title)
    onClosed: parent?.Window.window?.giveBack()

    delegate: MenuRow { }
    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: false
    }
    background: Rectangle {
        radius: Theme.radius - 2
        color: Theme.surface
        border.color: Theme.outline
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.swift }
    }
}
