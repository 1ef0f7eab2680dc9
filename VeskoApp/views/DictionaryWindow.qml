pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// The personal dictionary: the form for a term, and the terms.
VeskoWindow {
    id: window

    required property var dictionary
    required property var terms
    required property var exchange

    title: qsTranslate("Vesko", "Vesko Dictionary")
    width: 680
    height: 620
    minimumWidth: 600
    minimumHeight: 500

    Shortcut {
        sequence: "Ctrl+F"
        onActivated: {
            search.forceActiveFocus(Qt.ShortcutFocusReason);
            search.selectAll();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 28
        anchors.topMargin: 24
        anchors.bottomMargin: 18
        spacing: 0

        Words {
            Layout.fillWidth: true
            text: qsTranslate("Vesko", "Your words, your spelling")
            font.pixelSize: 22
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        Words {
            Layout.fillWidth: true
            Layout.topMargin: 4
            text: qsTranslate("Vesko", "Corrections stay on this Mac. Original transcripts are kept.")
            color: Theme.quiet
            wrapMode: Text.Wrap
        }

        Banner {
            Layout.fillWidth: true
            Layout.topMargin: 16
            visible: text.length > 0
            alarm: false
            text: window.dictionary.pendingText

            PushButton {
                text: qsTranslate("Vesko", "Save last corrections")
                flat: true
                onClicked: window.terms.learnPendingCorrections()
            }
            IconButton {
                name: qsTranslate("Vesko", "Dismiss")
                iconName: "close"
                onClicked: window.terms.dismissPendingCorrections()
            }
        }

        Banner {
            Layout.fillWidth: true
            Layout.topMargin: 16
            visible: text.length > 0
            alarm: false
            text: window.dictionary.undoText

            PushButton {
                text: qsTranslate("Vesko", "Undo")
                flat: true
                onClicked: window.dictionary.undo()
            }
        }

        TermForm {
            id: form

            Layout.fillWidth: true
            Layout.topMargin: 20
            terms: window.terms
            dictionary: window.dictionary
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: 22
            spacing: 12

            TextBox {
                id: search

                Layout.fillWidth: true
                iconName: "search"
                placeholderText: qsTranslate("Vesko", "Search dictionary")
                onTextEdited: window.dictionary.query = text
                Keys.onEscapePressed: event => {
                    event.accepted = text.length > 0;
                    window.dictionary.query = "";
                }
                Keys.onDownPressed: terms.forceActiveFocus(Qt.TabFocusReason)

                Binding on text {
                    value: window.dictionary.query
                }
            }
            Words {
                text: window.dictionary.countText
                color: Theme.quiet
                horizontalAlignment: Text.AlignRight
            }
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.topMargin: 8
            Layout.leftMargin: -8
            Layout.rightMargin: -8

            TermList {
                id: terms

                anchors.fill: parent
                dictionary: window.dictionary
                onEdited: termID => {
                    window.dictionary.edit(termID);
                    form.begin();
                }
            }
            Column {
                id: empty

                readonly property var state: window.dictionary.emptyState

                anchors.centerIn: parent
                width: Math.min(parent.width - 60, 380)
                spacing: 8
                visible: state !== undefined && state !== null

                Icon {
                    anchors.horizontalCenter: parent.horizontalCenter
                    name: "book"
                    size: 30
                }
                Words {
                    width: parent.width
                    topPadding: 4
                    text: empty.state?.title ?? ""
                    font.weight: Font.DemiBold
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
                Words {
                    width: parent.width
                    text: empty.state?.text ?? ""
                    color: Theme.quiet
                    lineHeight: Theme.lineHeight
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }
            }
        }

        Words {
            Layout.fillWidth: true
            Layout.topMargin: 12
            text: qsTranslate("Vesko", "Whole terms are replaced after recognition. New unrelated wording stays a suggestion. You can edit, disable or remove any term.")
            font.pixelSize: Theme.small
            color: Theme.quiet
            lineHeight: Theme.lineHeight
            wrapMode: Text.Wrap
        }
        DictionaryExchangeView {
            Layout.alignment: Qt.AlignRight
            Layout.topMargin: 4
            exchange: window.exchange
            ready: window.session.ready
        }
    }
}
