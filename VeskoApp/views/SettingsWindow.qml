pragma ComponentBehavior: Bound

import QtQuick

// The settings form.
VeskoWindow {
    id: window

    required property var preferences
    required property var engines
    required property var downloads
    required property var catalog
    required property var status
    required property var storage
    required property var notifier

    title: qsTranslate("Vesko", "Vesko Settings")
    width: 650
    height: 720
    minimumWidth: 580
    minimumHeight: 600

    onVisibleChanged: {
        if (visible) {
            preferences.opened();
            engines.look();
            storage.measure();
        }
    }

    ScrollPage {
        id: view

        anchors.top: parent.top
        anchors.bottom: banner.top
        anchors.left: parent.left
        anchors.right: parent.right
        contentHeight: form.height
        Accessible.role: Accessible.Form
        Accessible.name: window.title

        Column {
            id: form

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width - 64, 620)
            topPadding: 24
            bottomPadding: 24
            spacing: 18

            AccountLines {
                width: parent.width
                account: window.preferences.account
                signIn: window.preferences.signIn
            }
            SpeechSection {
                width: parent.width
                preferences: window.preferences
                engines: window.engines
            }
            EngineSection {
                width: parent.width
                visible: window.preferences.onDevice
                engines: window.engines
                downloads: window.downloads
            }
            OpenRouterSection {
                width: parent.width
                preferences: window.preferences
            }
            TextSections {
                width: parent.width
                catalog: window.catalog
                preferences: window.preferences
            }
            CaptureSection {
                width: parent.width
                delegate: window.delegate
                status: window.status
                preferences: window.preferences
            }
            Section {
                width: parent.width
                title: qsTranslate("Vesko", "Personal dictionary")

                SettingSwitch {
                    width: parent.width
                    text: qsTranslate("Vesko", "Use personal dictionary")
                    value: window.preferences.dictionaryEnabled
                    onSwitched: on => window.preferences.dictionaryEnabled = on
                }
                SettingSwitch {
                    width: parent.width
                    text: qsTranslate("Vesko", "Learn from corrected dictation")
                    value: window.preferences.learnCorrections
                    onSwitched: on => window.preferences.learnCorrections = on
                }
                SettingNote {
                    width: parent.width
                    text: window.preferences.learningAdvice
                }
                SettingNote {
                    width: parent.width
                    text: qsTranslate("Vesko", "Learning watches only the fragment Vesko pasted into the same focused field, for up to two minutes. Return followed by a cleared field is used as its send signal. Similar word corrections are enabled automatically; other replacements are saved as suggestions. For other send buttons, review the last corrections in Dictionary. Nothing is learned from secure or unreadable fields.")
                }
                PushButton {
                    text: qsTranslate("Vesko", "Open Dictionary")
                    iconName: "book"
                    onClicked: window.delegate.openDictionary()
                }
            }
            Section {
                width: parent.width
                title: qsTranslate("Vesko", "Permissions")

                PermissionList {
                    width: parent.width
                    permissions: window.preferences.permissions
                    onPressed: row => window.preferences.pressPermission(row)
                }
                SettingNote {
                    width: parent.width
                    text: qsTranslate("Vesko", "Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment. Input Monitoring observes Fn and a Return send signal; keystrokes are not saved.")
                }
                PushButton {
                    text: qsTranslate("Vesko", "Open Privacy & Security")
                    onClicked: window.preferences.openPrivacySettings()
                }
            }
            StorageSection {
                width: parent.width
                storage: window.storage
                preferences: window.preferences
            }
            Section {
                width: parent.width
                title: qsTranslate("Vesko", "Privacy")

                SettingSwitch {
                    width: parent.width
                    text: qsTranslate("Vesko", "Show the text in notifications")
                    value: window.notifier.showsText
                    onSwitched: on => window.notifier.showsText = on
                }
                SettingSwitch {
                    width: parent.width
                    visible: window.preferences.analyticsConfigured
                    text: qsTranslate("Vesko", "Share anonymous usage analytics")
                    value: window.preferences.analyticsEnabled
                    onSwitched: on => window.preferences.analyticsEnabled = on
                }
                SettingNote {
                    width: parent.width
                    text: window.preferences.analyticsNote
                }
            }
        }
    }

    // What went wrong, else what the last press of a button came to: below the form, which it leaves
    // whole.
    Banner {
        id: banner

        readonly property string error: window.status.errorMessage

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: visible ? 12 : 0
        height: visible ? implicitHeight : 0
        visible: text.length > 0
        alarm: error.length > 0
        text: error || window.preferences.notice

        IconButton {
            name: qsTranslate("Vesko", "Dismiss message")
            iconName: "close"
            ink: banner.alarm ? Theme.alarm : Theme.quiet
            onClicked: {
                window.status.dismissError();
                window.preferences.dismissNotice();
            }
        }
    }
}
