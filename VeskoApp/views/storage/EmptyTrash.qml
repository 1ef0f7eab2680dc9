pragma ComponentBehavior: Bound

import QtQuick

// Lets the user empty the Trash.
PushButton {
    id: button

    required property var storage

    text: qsTranslate("Vesko", "Empty Trash…")
    iconName: "trash"
    destructive: true
    flat: true
    onClicked: question.get().open()

    OnDemand {
        id: question

        Sheet {
            title: qsTranslate("Vesko", "Delete all notes in the Trash permanently?")
            text: qsTranslate("Vesko", "Their recordings go with them. This cannot be undone.")
            agreeText: qsTranslate("Vesko", "Empty Trash")
            destructive: true
            irrevocable: true
            onAccepted: button.storage.emptyTrash()
        }
    }
}
