import QtQuick

// Asks for the path of a file, where the desktop has no dialog for it.
Sheet {
    id: sheet

    property var offered: () => "" // the path that stands there first
    property var replaces: path => false // whether a file would be replaced
    signal chosen(string path)

    text: replaces(path.text) ? qsTranslate("Vesko", "The file that is there will be replaced.") : ""
    canAgree: path.text.trim().length > 0
    onAccepted: chosen(path.text)
    onAboutToShow: path.text = offered()
    onOpened: {
        path.forceActiveFocus();
        path.selectAll();
    }

    TextBox {
        id: path

        width: sheet.availableWidth
        name: qsTranslate("Vesko", "File")
        onAccepted: if (sheet.canAgree) sheet.accept()
    }
}
