pragma ComponentBehavior: Bound

import QtQuick

// The floating control: a round button with what the program is doing beside it, and above it a
// question, the menu, a hint or what has just happened. It never takes the focus from the field
// that is being dictated into, so all of it is for the pointer and the accessibility bus.
Window {
    id: panel

    required property var capture
    required property var session
    required property var inquiry
    required property var status
    required property var control
    required property var delegate
    property bool menuOpen: false
    readonly property bool live: control.live
    readonly property bool timed: control.elapsed.length > 0
    readonly property bool canGiveUp: capture.canGiveUp
    // What is said in passing: the hint of the held key, else an error, else what has just
    // happened, else what the button is for while the pointer rests on it.
    readonly property string said: control.fnHintVisible ? qsTranslate("Vesko", "Release Fn to finish")
        : status.errorMessage || withTarget(control.news || (rests.elapsed ? control.help : ""))
    readonly property bool pointedAt: pointer.containsMouse
    readonly property bool restedOn: pointedAt && !pointer.pressed && !menuOpen
    // An error comes first.
    readonly property bool asks: inquiry.question !== undefined && !menuOpen && !status.errorMessage

    // What can be seen of the window; the rest of it lets clicks through.
    readonly property var shapes: [shape(orb, orb.radius), shape(beside, beside.radius), shape(question, Theme.radius),
                                   shape(menu, Theme.radius), shape(above, above.radius)]

    function shape(part, radius) {
        return part.visible && part.opacity > 0 && part.height > 0
            ? { x: part.x, y: part.y, width: part.width, height: part.height, radius: radius } : {};
    }

    // Where something of that height stands above the button, or below it.
    function besideButton(height) {
        return control.atTop ? orb.height + 8 : panel.height - orb.height - height - 8;
    }
    function withTarget(text) {
        return text && capture.recording && capture.target ? text + "\n" + capture.target : text;
    }

    title: "Vesko"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.WindowDoesNotAcceptFocus
    color: "transparent"
    width: 240
    height: 236
    onAsksChanged: {
        question.setSource(asks ? "LanguageQuestionView.qml" : "", { inquiry: panel.inquiry });
        if (asks)
            announced.tell(qsTranslate("Vesko", "Which language do you speak?"));
    }
    onLiveChanged: meter.setSource(live ? "CaptureMeter.qml" : "", { control: panel.control })
    onTimedChanged: elapsed.setSource(timed ? "ElapsedTime.qml" : "", { control: panel.control })
    onCanGiveUpChanged: {
        if (canGiveUp) {
            lasts.restart();
        } else {
            lasts.stop();
            giveUp.source = "";
        }
    }
    onSaidChanged: if (said && !above.item) above.setSource("PanelMessage.qml", { panel: panel })
    onRestedOnChanged: rests.elapsed = false
    onMenuOpenChanged: menu.setSource(menuOpen ? "PanelMenu.qml" : "", { panel: panel })
    onShapesChanged: control.cut(shapes)
    onVisibleChanged: if (visible) control.cut(shapes)

    // For all windows, since this one is always there.
    Binding {
        target: Theme
        property: "reduceMotion"
        value: panel.delegate.reduceMotion
    }
    Binding {
        target: Theme
        property: "highContrast"
        value: panel.delegate.highContrast
    }
    Announcement {
        id: announced
    }
    Connections {
        target: panel.control
        // Nothing is said while it records: the microphone would hear it.
        function onNewsChanged() {
            announced.text = panel.capture.recording ? "" : panel.control.news;
        }
    }
    Connections {
        target: panel.status
        function onErrorMessageChanged() {
            announced.tell(panel.status.errorMessage);
        }
    }
    // What takes no longer than a moment needs no way to be given up.
    Timer {
        id: lasts

        interval: 500
        onTriggered: giveUp.setSource("GiveUpButton.qml", { capture: panel.capture })
    }
    Face {
        id: orb

        x: panel.control.atLeft ? 0 : parent.width - width
        y: panel.control.atTop ? 0 : parent.height - height
        width: panel.control.buttonSize
        height: width
        radius: width / 2
        border.color: panel.capture.recording || pointer.containsMouse ? Theme.accent : Theme.outline
        border.width: panel.capture.recording ? 2 : 1
        Accessible.role: Accessible.Button
        Accessible.name: panel.control.name
        Accessible.description: [panel.capture.phaseTitle, panel.capture.recording ? panel.capture.target : "", panel.session.opening ? "" : panel.status.message, panel.status.errorMessage,
                                 panel.status.shortcutMessage].filter(text => text).join("\n")
        Accessible.focusable: panel.control.orbEnabled
        Accessible.onPressAction: if (panel.control.orbEnabled) panel.capture.toggleDictation()

        Row {
            anchors.centerIn: parent
            spacing: 5
            visible: !panel.live
            opacity: panel.control.orbEnabled ? 1 : 0.5

            IdleDot { }
            IdleDot { }
            IdleDot { }
        }
        Loader {
            id: meter

            anchors.fill: parent
        }
        MouseArea {
            id: pointer

            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            hoverEnabled: true
            onPressed: mouse => {
                if (mouse.button === Qt.RightButton || mouse.modifiers & Qt.ControlModifier) {
                    panel.control.dropGesture();
                    panel.menuOpen = !panel.menuOpen;
                } else {
                    panel.menuOpen = false;
                    panel.control.press(mapToGlobal(mouse.x, mouse.y));
                }
            }
            onPositionChanged: mouse => {
                if (pressed)
                    panel.control.drag(mapToGlobal(mouse.x, mouse.y));
            }
            onReleased: mouse => panel.control.release(mapToGlobal(mouse.x, mouse.y))
            onCanceled: panel.control.dropGesture()
        }
    }

    Face {
        id: beside

        x: panel.control.atLeft ? orb.width + 6 : orb.x - width - 6
        y: orb.y + (orb.height - height) / 2
        width: phaseWords.implicitWidth + (elapsed.item ? elapsed.width + 8 : 0) + (giveUp.item ? 20 : 0) + 24
        height: 30
        radius: 15

        MouseArea {
            anchors.fill: parent
            onPressed: mouse => panel.control.press(mapToGlobal(mouse.x, mouse.y))
            onPositionChanged: mouse => panel.control.drag(mapToGlobal(mouse.x, mouse.y))
            onReleased: mouse => panel.control.release(mapToGlobal(mouse.x, mouse.y), false)
            onCanceled: panel.control.dropGesture()
        }
        PanelText {
            id: phaseWords

            x: 12
            anchors.verticalCenter: parent.verticalCenter
            text: panel.capture.phaseTitle
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Loader {
            id: elapsed

            anchors.left: phaseWords.right
            anchors.leftMargin: 8
            anchors.verticalCenter: parent.verticalCenter
        }
        Loader {
            id: giveUp

            anchors.right: parent.right
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
        }
    }

    Loader {
        id: above

        readonly property real radius: Theme.radius
        readonly property Item message: item as Item

        x: panel.control.atLeft ? 0 : parent.width - width
        y: panel.besideButton(height)
        visible: (message?.opacity ?? 0) > 0 && !menu.visible && !question.visible
    }
    Timer {
        id: rests

        property bool elapsed: false

        interval: 700
        running: panel.restedOn
        onTriggered: rests.elapsed = true
    }

    // Made when they are wanted, which most of the time they are not.
    Loader {
        id: question

        y: panel.besideButton(height)
        width: parent.width
        // In a language with long words it is drawn smaller rather than cut off.
        scale: Math.min(1, (panel.height - orb.height - 8) / height)
        transformOrigin: panel.control.atTop ? Item.Top : Item.Bottom
        visible: panel.asks
    }
    Loader {
        id: menu

        x: panel.control.atLeft ? 0 : parent.width - width
        y: panel.besideButton(height)
        visible: panel.menuOpen
    }

    component IdleDot: Rectangle {
        width: 5
        height: 5
        radius: 2.5
        color: Theme.captureInk
    }
    component Face: Rectangle {
        color: Theme.surface
        border.color: Theme.outline
    }
    component PanelText: Text {
        font.family: Theme.family
        font.pixelSize: 13
        color: Theme.text
        textFormat: Text.PlainText
    }
}
