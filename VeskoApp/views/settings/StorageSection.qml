import QtQuick

// Whether the program is there, and where its data is.
Section {
    id: section

    required property var preferences
    required property var storage

    title: qsTranslate("Vesko", "Availability and storage")

    SettingSwitch {
        width: parent.width
        text: qsTranslate("Vesko", "Launch at login")
        value: section.preferences.launchesAtLogin
        onSwitched: on => section.preferences.setLaunchAtLogin(on)
    }
    SettingNote {
        width: parent.width
        visible: section.preferences.needsLoginApproval
        text: qsTranslate("Vesko", "macOS approval is needed in Login Items.")
    }
    PushButton {
        visible: section.preferences.needsLoginApproval
        text: qsTranslate("Vesko", "Open Login Items")
        onClicked: section.preferences.openLoginItems()
    }
    PushButton {
        text: qsTranslate("Vesko", "Open data folder")
        iconName: "folder"
        onClicked: section.preferences.openDataFolder()
    }
    AgeSettings {
        width: parent.width
        storage: section.storage
    }
    SettingNote {
        width: parent.width
        text: qsTranslate("Vesko", "Recordings and notes are stored locally. Export individual notes as Markdown from the note menu. Cloud sync is not enabled.")
    }
}
