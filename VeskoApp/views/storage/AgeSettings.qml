pragma ComponentBehavior: Bound

import QtQuick

// What the recordings take, and from what age on they and the Trash go. Nothing goes before the
// user has read what that means.
Column {
    id: form

    required property var storage

    spacing: 8

    SettingNote {
        width: parent.width
        visible: form.storage.size.length > 0
        text: qsTranslate("Vesko", "Your recordings take %1.").arg(form.storage.size)
    }
    SettingPicker {
        width: parent.width
        name: qsTranslate("Vesko", "Remove recordings")
        choices: form.storage.recordingAges
        value: form.storage.recordingAge
        onChosen: tag => {
            if (tag === "never") {
                form.storage.setRecordingAge(tag);
                return;
            }
            askRecordings.get().ask(tag);
        }
    }
    SettingNote {
        width: parent.width
        text: qsTranslate("Vesko", "Only the audio goes: texts and their history stay, and so does each recording without a text.")
    }
    SettingPicker {
        width: parent.width
        name: qsTranslate("Vesko", "Empty Trash")
        choices: form.storage.trashAges
        value: form.storage.trashAge
        onChosen: tag => {
            if (tag === "never") {
                form.storage.setTrashAge(tag);
                return;
            }
            askTrash.get().ask(tag);
        }
    }

    OnDemand {
        id: askRecordings

        Sheet {
            property string tag

            function ask(age) {
                tag = age;
                open();
            }

            title: qsTranslate("Vesko", "Remove the audio of old recordings?")
            text: qsTranslate("Vesko", "What is older goes now, and the rest as it grows old. This cannot be undone.")
            agreeText: qsTranslate("Vesko", "Remove")
            destructive: true
            irrevocable: true
            onAccepted: form.storage.setRecordingAge(tag)
        }
    }
    OnDemand {
        id: askTrash

        Sheet {
            property string tag

            function ask(age) {
                tag = age;
                open();
            }

            title: qsTranslate("Vesko", "Delete old notes in the Trash?")
            text: qsTranslate("Vesko", "What is older goes now, and the rest as it grows old. This cannot be undone.")
            agreeText: qsTranslate("Vesko", "Delete permanently")
            destructive: true
            irrevocable: true
            onAccepted: form.storage.setTrashAge(tag)
        }
    }
}
