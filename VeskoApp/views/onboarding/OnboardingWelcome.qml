import QtQuick

// What the program is good for.
Column {
    spacing: 26

    Row {
        spacing: 18

        Item {
            width: 44
            height: 44

            LevelMark {
                anchors.centerIn: parent
                scale: 2.2
            }
        }
        Column {
            spacing: 2

            Words {
                text: "Vesko"
                font.pixelSize: 30
                font.weight: Font.Bold
                Accessible.role: Accessible.Heading
            }
            Words {
                text: qsTranslate("Vesko", "Speak once. Keep the thought. Use the words.")
                color: Theme.quiet
            }
        }
    }
    Column {
        width: parent.width
        spacing: 18

        OnboardingCard {
            width: parent.width
            iconName: "bolt"
            title: qsTranslate("Vesko", "Faster than typing")
            text: qsTranslate("Vesko", "Say it in any app. Vesko writes it where your cursor is.")
        }
        OnboardingCard {
            width: parent.width
            iconName: "waveform"
            title: qsTranslate("Vesko", "Nothing gets lost")
            text: qsTranslate("Vesko", "Every original recording stays on this Mac. Retry any transcription.")
        }
        OnboardingCard {
            width: parent.width
            iconName: "pencil"
            title: qsTranslate("Vesko", "Yours to edit")
            text: qsTranslate("Vesko", "Notes, projects and a personal dictionary that learns your words.")
        }
    }
}
