import QtQuick

// What works on this computer and what doesn't, to be read and to be put into a report.
Sheet {
    id: sheet

    required property var diagnosis

    title: qsTranslate("Vesko", "Diagnosis")
    text: qsTranslate("Vesko", "What works on this computer and what doesn't. Nothing that you said or wrote is in it, and no key: it can go into a report as it is.")
    agreeText: qsTranslate("Vesko", "OK")
    cancellable: false
    width: Math.min(760, parent ? parent.width - 48 : 760)
    onAboutToShow: diagnosis.look()

    Item {
        width: sheet.availableWidth
        height: Math.max(120, Math.min(page.contentHeight, sheet.parent ? sheet.parent.height - 280 : 400))

        Working {
            anchors.centerIn: parent
            visible: sheet.diagnosis.looking
            text: qsTranslate("Vesko", "Looking at this computer…")
        }
        ScrollPage {
            id: page

            anchors.fill: parent
            visible: !sheet.diagnosis.looking
            contentHeight: report.height

            TextEdit {
                id: report

                width: page.width
                text: sheet.diagnosis.report
                textFormat: TextEdit.PlainText
                readOnly: true
                selectByMouse: true
                wrapMode: TextEdit.Wrap
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentInk
                font.family: "monospace"
                font.pixelSize: Theme.small
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
    PushButton {
        text: qsTranslate("Vesko", "Copy")
        iconName: "copy"
        flat: true
        enabled: !sheet.diagnosis.looking
        onClicked: {
            report.selectAll();
            report.copy();
            report.deselect();
        }
    }
}
