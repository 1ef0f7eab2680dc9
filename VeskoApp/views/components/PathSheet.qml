import QtQuick

// Asks for the path of a file of an exchange, or of a folder, where the desktop has no dialog for it.
Sheet {
    id: sheet

    required property var exchange
    property bool saves: false // and may replace a file
    property bool replaces: false
    property string fieldName: qsTranslate("Vesko", "File")
    signal chosen(string path)

    // Each time anew: the file of the same name may be there by now.
    function look() {
        replaces = saves && exchange.replacesFile(path.text);
    }

    text: replaces ? qsTranslate("Vesko", "The file that is there will be replaced.") : ""
    canAgree: path.text.trim().length > 0
    onAccepted: chosen(path.text)
    onAboutToShow: {
        path.text = exchange.exportPath();
        look();
    }
    onOpened: {
        path.forceActiveFocus();
        path.selectAll();
    }

    TextBox {
        id: path

        width: sheet.availableWidth
        name: sheet.fieldName
        onTextChanged: sheet.look()
        onAccepted: if (sheet.canAgree) sheet.accept()
    }
}
