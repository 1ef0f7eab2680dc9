pragma ComponentBehavior: Bound

import QtQuick

// The dictionary goes out into a table, or one comes in.
Row {
    id: view

    required property var exchange
    required property bool ready // the library is

    spacing: 4

    PushButton {
        text: qsTranslate("Vesko", "Import…")
        help: qsTranslate("Vesko", "Import dictionary…")
        flat: true
        enabled: view.ready
        onClicked: view.exchange.chooseImport(view.Window.window)
    }
    PushButton {
        text: qsTranslate("Vesko", "Export…")
        help: qsTranslate("Vesko", "Export dictionary…")
        flat: true
        enabled: view.ready
        onClicked: view.exchange.chooseExport(view.Window.window)
    }

    Connections {
        function onExportPathWanted() {
            exporter.get().open();
        }
        function onImportPathWanted() {
            importer.get().open();
        }

        target: view.exchange
    }
    OnDemand {
        id: exporter

        PathSheet {
            title: qsTranslate("Vesko", "Export dictionary…")
            agreeText: qsTranslate("Vesko", "Save")
            exchange: view.exchange
            saves: true
            onChosen: path => view.exchange.exportTo(path)
        }
    }
    OnDemand {
        id: importer

        PathSheet {
            title: qsTranslate("Vesko", "Import dictionary…")
            agreeText: qsTranslate("Vesko", "Import")
            exchange: view.exchange
            onChosen: path => view.exchange.importFrom(path)
        }
    }
}
