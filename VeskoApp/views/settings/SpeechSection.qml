import QtQuick

// By what and in which language speech becomes text.
Section {
    id: section

    required property var preferences
    required property var engines

    title: qsTranslate("Vesko", "Speech recognition")

    SettingPicker {
        width: parent.width
        name: qsTranslate("Vesko", "Transcribe with")
        choices: section.preferences.providers
        value: section.preferences.onDevice ? "apple" : "openrouter"
        onChosen: tag => section.preferences.provider = tag
    }
    SettingPicker {
        width: parent.width
        name: qsTranslate("Vesko", "Spoken language")
        choices: section.preferences.onDevice ? section.engines.languages : section.preferences.languages
        value: section.preferences.language
        onChosen: tag => section.preferences.language = tag
    }
    SettingNote {
        width: parent.width
        text: section.preferences.languageHint
    }
    SettingNote {
        width: parent.width
        visible: section.preferences.onDevice
        text: section.engines.languageNote
    }
    SettingPicker {
        width: parent.width
        visible: !section.preferences.onDevice && choices.length > 0
        name: qsTranslate("Vesko", "Speech model")
        choices: section.preferences.speechModels
        value: section.preferences.sttModel
        onChosen: tag => section.preferences.sttModel = tag
    }
    SettingText {
        width: parent.width
        visible: !section.preferences.onDevice && section.preferences.speechModels.length === 0
        name: qsTranslate("Vesko", "Speech model ID")
        value: section.preferences.sttModel
        onEdited: text => section.preferences.sttModel = text
    }
    SettingNote {
        width: parent.width
        visible: !section.preferences.onDevice
        text: section.preferences.hasVeskoAccess
              ? qsTranslate("Vesko", "Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Vesko access or your personal key determines which balance is used.")
              : qsTranslate("Vesko", "Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Your personal key's balance is used.")
    }
    SettingNote {
        width: parent.width
        text: qsTranslate("Vesko", "Recordings stop after 5 minutes in this version. Original audio stays on this Mac.")
    }
}
