import QtQuick.Dialogs

// Where a note is exported to; loaded only when one is.
FileDialog {
    title: qsTranslate("Vesko", "Export Markdown…")
    fileMode: FileDialog.SaveFile
    defaultSuffix: "md"
}
