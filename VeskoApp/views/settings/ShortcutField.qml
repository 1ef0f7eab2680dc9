import QtQuick

// Shows the shortcut, takes another that is pressed in it, and offers the default.
Row {
    id: field

    required property var choice

    spacing: Theme.space

    PushButton {
        text: qsTranslate("Vesko", "Use %1").arg(field.choice.defaultWords)
        visible: !field.choice.isDefault
        onClicked: field.choice.chooseDefault()
    }
    PushButton {
        id: recorder

        readonly property var modifiers: [Qt.Key_Shift, Qt.Key_Control, Qt.Key_Alt, Qt.Key_AltGr, Qt.Key_Meta, Qt.Key_Super_L, Qt.Key_Super_R, Qt.Key_CapsLock, Qt.Key_NumLock]

        text: !field.choice.listening ? field.choice.words : field.choice.pressed || qsTranslate("Vesko", "Press the new shortcut…")
        Accessible.name: qsTranslate("Vesko", "Global shortcut: %1").arg(text)
        onClicked: {
            forceActiveFocus();
            field.choice.listen();
        }
        onActiveFocusChanged: if (!activeFocus) field.choice.cancel()
        Keys.onShortcutOverride: event => event.accepted = field.choice.listening
        Keys.onPressed: event => {
            if (!field.choice.listening)
                return;
            if (modifiers.includes(event.key)) {
                field.choice.hold(event.key, event.modifiers, true);
                event.accepted = true;
            } else {
                event.accepted = event.isAutoRepeat || field.choice.press(event.key, event.modifiers, event.nativeScanCode);
            }
        }
        Keys.onReleased: event => {
            if (modifiers.includes(event.key))
                field.choice.hold(event.key, event.modifiers, false);
        }
    }
}
