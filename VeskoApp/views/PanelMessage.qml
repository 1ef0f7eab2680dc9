pragma ComponentBehavior: Bound

import QtQuick

// What the floating control says in passing. It goes by itself, or with a click on it.
Rectangle {
    id: message

    required property var panel
    readonly property bool alarms: panel.status.errorMessage && !panel.control.fnHintVisible
    property string shownText

    function show() {
        if (panel.said)
            shownText = panel.said;
    }

    width: Math.min(240, said.implicitWidth + 28)
    height: said.height + 20 + (open.visible ? open.height + 2 : 0)
    radius: Theme.radius
    color: alarms ? Theme.alarmSurface : Theme.surface
    border.color: Theme.outline
    opacity: panel.said ? 1 : 0
    Component.onCompleted: show()

    Connections {
        target: message.panel
        function onSaidChanged() {
            message.show();
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: message.panel.said ? Theme.calm : Theme.reduceMotion ? 100 : 450
            easing.type: message.panel.said ? Easing.OutQuad : Easing.InQuad
        }
    }
    Text {
        id: said

        x: 14
        y: 10
        width: Math.min(implicitWidth, 240 - 28)
        text: message.shownText
        font.family: Theme.family
        font.pixelSize: 13
        color: message.alarms ? Theme.alarm : Theme.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: message.panel.control.fnHintVisible
                         ? qsTranslate("Vesko", "Release Fn to finish recording") : text
    }
    MouseArea {
        anchors.fill: parent
        enabled: message.visible
        onClicked: {
            message.panel.status.dismissError();
            message.panel.control.dismissNews();
        }
    }
    PanelRow {
        id: open

        x: 6
        y: said.y + said.height + 4
        width: parent.width - 12
        visible: message.panel.control.offersNote && message.panel.said === message.panel.control.news
        text: qsTranslate("Vesko", "Open note")
        Accessible.role: Accessible.Button
        onChosen: message.panel.control.openNote()
    }
}
