pragma ComponentBehavior: Bound

import QtQuick

// The settings form.
VeskoWindow {
    id: window

    required property var preferences
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
        if (!visible)
            return;
        preferences.opened();
        storage.measure();
    }

    Banner {
        id: banner

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: visible ? 16 : 0
        height: visible ? implicitHeight : 0
        visible: text.length > 0
        text: window.status.errorMessage

        IconButton {
            name: qsTranslate("Vesko", "Dismiss message")
            iconName: "close"
            ink: Theme.alarm
            onClicked: window.status.dismissError()
        }
    }

    ScrollPage {
        id: view

        anchors.top: banner.bottom
        anchors.bottom: parent.bottom
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

    // What the last press of a button came to, where it is seen from every part of the form.
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 18
        width: Math.min(parent.width - 48, notice.implicitWidth + 32)
        height: notice.height + 20
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.outline
        visible: notice.text.length > 0

        Words {
            id: notice

            anchors.centerIn: parent
            width: Math.min(implicitWidth, window.width - 80)
            text: window.preferences.notice
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StatusBar
        }
    }
}
