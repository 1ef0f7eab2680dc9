pragma ComponentBehavior: Bound

import QtQuick

// The library goes out into a file, or one comes in: how far that is, and the questions for a path
// where the desktop has none.
Item {
    id: view

    required property var exchange
    required property var delegate

    implicitHeight: banner.visible ? banner.implicitHeight : 0

    Banner {
        id: banner

        anchors.fill: parent
        visible: view.exchange.work.length > 0
        alarm: false
        news: view.exchange.work
        text: `${view.exchange.work} ${Math.floor(view.exchange.progress * 100)} %`

        PushButton {
            text: qsTranslate("Vesko", "Cancel")
            flat: true
            onClicked: view.exchange.cancel()
        }
    }

    Connections {
        function onExportWanted() {
            view.exchange.chooseExport(view.Window.window);
        }
        function onImportWanted() {
            view.exchange.chooseImport(view.Window.window);
        }

        target: view.delegate
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
            title: qsTranslate("Vesko", "Export library…")
            agreeText: qsTranslate("Vesko", "Save")
            exchange: view.exchange
            saves: true
            onChosen: path => view.exchange.exportTo(path)
        }
    }
    OnDemand {
        id: importer

        PathSheet {
            title: qsTranslate("Vesko", "Import library…")
            agreeText: qsTranslate("Vesko", "Import")
            exchange: view.exchange
            onChosen: path => view.exchange.importFrom(path)
        }
    }
}
