import QtCore
import QtQuick.Dialogs

// Where a note is exported to; loaded only when one is.
FileDialog {
    id: dialog

    property string suggestion

    title: qsTranslate("Vesko", "Export Markdown…")
    fileMode: FileDialog.SaveFile
    defaultSuffix: "md"
    currentFolder: StandardPaths.writableLocation(StandardPaths.DocumentsLocation)
    onSuggestionChanged: selectedFile = `${currentFolder}/${encodeURIComponent(suggestion)}`
}
