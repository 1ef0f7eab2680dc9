pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

// One original recording of a note, with what became of it.
Column {
    id: row

    required property var model
    required property var library
    required property bool trashed
    required property bool idle // nothing else is being recorded or transcribed
    readonly property bool playing: library.playingID === model.recordingID

    spacing: 6
    Accessible.role: Accessible.Grouping
    Accessible.name: [model.moment, model.duration, model.status].filter(text => text).join(", ")

    RowLayout {
        width: row.width
        spacing: 10

        IconButton {
            visible: row.model.removed.length === 0
            name: qsTranslate("Vesko", "Play or stop original recording")
            iconName: row.playing ? "stop" : "play"
            ink: Theme.accent
            onClicked: row.library.play(row.model.recordingID)
        }
        Words {
            text: row.model.moment
        }
        Words {
            visible: text.length > 0
            text: row.model.duration
            color: Theme.quiet
        }
        Words {
            Layout.fillWidth: true
            text: row.model.status
            color: Theme.quiet
            elide: Text.ElideRight
        }
        IconButton {
            visible: row.model.removed.length === 0
            name: qsTranslate("Vesko", "Show in folder")
            iconName: "folder"
            onClicked: row.library.showInFolder(row.model.recordingID)
        }
        PushButton {
            visible: !row.trashed && row.model.removed.length === 0
            text: row.model.retryText
            flat: true
            enabled: row.idle
            onClicked: confirmRetry.get().open()
        }
    }
    Repeater {
        model: row.playing ? 1 : 0

        PlaybackBar {
            x: 44
            width: row.width - 44
            playback: row.library.playback
        }
    }
    Words {
        visible: text.length > 0
        width: row.width
        text: row.model.removed
        font.pixelSize: Theme.small
        color: Theme.quiet
        wrapMode: Text.Wrap
    }
    Words {
        visible: text.length > 0 && row.model.attempts.length === 0
        x: 44
        width: row.width - 44
        text: row.model.error
        font.pixelSize: Theme.small
        color: Theme.alarm
        wrapMode: Text.Wrap
    }
    Repeater {
        model: row.model.attempts

        Column {
            id: attempt

            required property var modelData

            x: 44
            width: row.width - 44
            spacing: 4
            bottomPadding: 6

            Words {
                width: parent.width
                text: [attempt.modelData.provider, attempt.modelData.modelName, attempt.modelData.status,
                       attempt.modelData.cost].join(" · ")
                font.pixelSize: Theme.small
                color: Theme.quiet
                wrapMode: Text.Wrap
            }
            Words {
                width: parent.width
                visible: text.length > 0
                text: attempt.modelData.error
                font.pixelSize: Theme.small
                color: attempt.modelData.failed ? Theme.alarm : Theme.quiet
                wrapMode: Text.Wrap
            }
            Disclosure {
                width: parent.width
                visible: text.length > 0
                title: qsTranslate("Vesko", "Original transcript")
                text: attempt.modelData.original
            }
            Disclosure {
                width: parent.width
                visible: text.length > 0
                title: qsTranslate("Vesko", "Edited text")
                text: attempt.modelData.edited

                PushButton {
                    text: qsTranslate("Vesko", "Copy edited text")
                    iconName: "copy"
                    flat: true
                    onClicked: row.library.copyText(attempt.modelData.edited)
                }
            }
        }
    }

    OnDemand {
        id: confirmRetry

        Sheet {
            title: qsTranslate("Vesko", "Transcribe this original again?")
            text: qsTranslate("Vesko", "Uses your current model settings. OpenRouter requests use your credit and can incur another charge. The result stays in this note and is never pasted automatically.")
            agreeText: qsTranslate("Vesko", "Transcribe")
            onAccepted: row.library.retry(row.model.recordingID)
        }
    }
}
