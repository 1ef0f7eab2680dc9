pragma ComponentBehavior: Bound

import QtQuick

// Asks once which language the user speaks.
Rectangle {
    id: view

    required property var inquiry
    readonly property var question: inquiry.question

    height: content.height + 22
    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.outline
    Accessible.role: Accessible.Dialog
    Accessible.name: title.text

    Column {
        id: content

        x: 14
        y: 11
        width: parent.width - 28
        spacing: 7

        Text {
            id: title

            width: parent.width
            text: qsTranslate("Vesko", "Which language do you speak?")
            font.family: Theme.family
            font.pixelSize: 13
            font.weight: Font.DemiBold
            color: Theme.text
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Flow {
            width: parent.width
            spacing: 5

            Repeater {
                model: view.question?.options ?? []

                Rectangle {
                    id: option

                    required property var modelData

                    width: name.implicitWidth + 20
                    height: 26
                    radius: 13
                    color: hover.hovered ? Theme.chosen : Theme.field
                    Accessible.role: Accessible.Button
                    Accessible.name: modelData.name
                    Accessible.focusable: true
                    Accessible.onPressAction: view.inquiry.choose(modelData.tag)

                    HoverHandler {
                        id: hover
                    }
                    TapHandler {
                        onTapped: view.inquiry.choose(option.modelData.tag)
                    }
                    Text {
                        id: name

                        anchors.centerIn: parent
                        text: option.modelData.name
                        font.family: Theme.family
                        font.pixelSize: 12
                        font.weight: Font.Medium
                        color: Theme.text
                        Accessible.ignored: true
                    }
                }
            }
        }
        Text {
            id: both

            width: parent.width
            text: qsTranslate("Vesko", "I switch between languages")
            font.family: Theme.family
            font.pixelSize: 12
            font.underline: over.hovered
            color: Theme.accent
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Link
            Accessible.name: text
            Accessible.focusable: true
            Accessible.onPressAction: view.inquiry.keepAutomatic()

            HoverHandler {
                id: over
            }
            TapHandler {
                onTapped: view.inquiry.keepAutomatic()
            }
        }
        Text {
            width: parent.width
            text: view.question?.note ?? ""
            font.family: Theme.family
            font.pixelSize: 11
            color: Theme.quiet
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
