pragma ComponentBehavior: Bound

import QtQuick

// The settings: their pages at the left, with a search over all of them, and the chosen one.
VeskoWindow {
    id: window

    required property var preferences
    required property var engines
    required property var downloads
    required property var catalog
    required property var status
    required property var storage
    required property var notifier

    // What is set in one place, and can be searched with what is set in the others.
    readonly property list<SettingsPage> pages: [
        SettingsPage {
            name: qsTranslate("Vesko", "Speech recognition")
            iconName: "microphone"

            Column {
                width: form.width
                spacing: 18

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
                    last: true
                    width: parent.width
                    preferences: window.preferences
                }
            }
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Translation and cleanup")
            iconName: "text"

            TextSections {
                width: form.width
                catalog: window.catalog
                preferences: window.preferences
            }
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Capture and insertion")
            iconName: "waveform"

            CaptureSection {
                last: true
                width: form.width
                delegate: window.delegate
                status: window.status
                preferences: window.preferences
            }
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Personal dictionary")
            iconName: "book"

            Section {
                last: true
                width: form.width
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
                    note: learnNote.text
                    value: window.preferences.learnCorrections
                    onSwitched: on => window.preferences.learnCorrections = on
                }
                SettingNote {
                    width: parent.width
                    text: window.preferences.learningAdvice
                }
                SettingNote {
                    id: learnNote

                    width: parent.width
                    text: qsTranslate("Vesko", "Learning watches only the fragment Vesko pasted into the same focused field, for up to two minutes. Return followed by a cleared field is used as its send signal. Similar word corrections are enabled automatically; other replacements are saved as suggestions. For other send buttons, review the last corrections in Dictionary. Nothing is learned from secure or unreadable fields.")
                }
                PushButton {
                    text: qsTranslate("Vesko", "Open Dictionary")
                    iconName: "book"
                    onClicked: window.delegate.openDictionary()
                }
            }
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Permissions")
            iconName: "check-circle"

            Section {
                last: true
                width: form.width
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
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Availability and storage")
            iconName: "folder"

            StorageSection {
                last: true
                width: form.width
                storage: window.storage
                preferences: window.preferences
            }
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Privacy")
            iconName: "info"

            Section {
                last: true
                width: form.width
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
                    note: analyticsNote.text
                    value: window.preferences.analyticsEnabled
                    onSwitched: on => window.preferences.analyticsEnabled = on
                }
                SettingNote {
                    id: analyticsNote

                    width: parent.width
                    text: window.preferences.analyticsNote
                }
            }
        },
        SettingsPage {
            name: qsTranslate("Vesko", "Account")
            iconName: "circle"
            offered: window.preferences.account.available

            AccountLines {
                last: true
                width: form.width
                account: window.preferences.account
                signIn: window.preferences.signIn
            }
        }
    ]
    property SettingsPage current: pages[0]
    property Item shown: null // of the current page
    property Item wanted: null // has the keyboard once it has its place

    function place() {
        const next = current.get();
        if (next === shown)
            return;
        if (shown)
            shown.parent = null;
        shown = next;
        shown.parent = form;
        view.contentY = 0;
    }
    function goTo(page: SettingsPage, row: Item) {
        search.clear();
        current = page;
        wanted = row;
        update();
    }

    title: qsTranslate("Vesko", "Vesko Settings")
    width: 860
    height: 720
    minimumWidth: 560
    minimumHeight: 600

    onVisibleChanged: {
        if (visible) {
            preferences.opened();
            engines.look();
            storage.measure();
        }
    }
    onCurrentChanged: place()
    Component.onCompleted: place()
    onFrameSwapped: {
        if (!wanted)
            return;
        const row = wanted;
        wanted = null;
        const control = row.activeFocusOnTab ? row : row.nextItemInFocusChain(); // what the row is set by
        control.forceActiveFocus(Qt.TabFocusReason);
        view.reveal(row, Qt.rect(0, 0, row.width, row.height));
    }

    Shortcut {
        sequence: "Ctrl+F"
        onActivated: search.forceActiveFocus(Qt.ShortcutFocusReason)
    }
    TextBox {
        id: search

        anchors.left: parent.left
        anchors.right: sidebar.narrow ? parent.right : sidebar.right
        anchors.top: parent.top
        anchors.margins: 8
        z: 1
        name: qsTranslate("Vesko", "Search settings")
        placeholderText: name
        iconName: "search"
        onAccepted: sidebar.chooseFirst()
        Keys.onDownPressed: sidebar.move(1)
        Keys.onEscapePressed: text ? clear() : window.close()
    }
    Rectangle {
        anchors.top: parent.top
        anchors.bottom: sidebar.top
        anchors.left: sidebar.left
        anchors.right: sidebar.narrow ? parent.right : sidebar.right
        color: Theme.sidebar

        // Of the sidebar, which begins below.
        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            visible: !sidebar.narrow
            color: Theme.hairline
        }
    }
    SettingsSidebar {
        id: sidebar

        anchors.top: search.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        width: implicitWidth
        narrow: window.width < 720
        pages: window.pages
        current: window.current
        search: search.text
        onPageChosen: page => window.current = page
        onRowChosen: (page, row) => window.goTo(page, row)
        Keys.onEscapePressed: window.close()
    }
    ScrollPage {
        id: view

        anchors.top: sidebar.narrow ? search.bottom : parent.top
        anchors.bottom: banner.top
        anchors.left: sidebar.right
        anchors.right: parent.right
        contentHeight: form.height
        Accessible.role: Accessible.Form
        Accessible.name: window.current.name
        Keys.onEscapePressed: window.close()

        Column {
            id: form

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width - 32, 620)
            topPadding: 24
            bottomPadding: 24
        }
    }

    // What went wrong, else what the last press of a button came to: below the form, which it leaves
    // whole.
    Banner {
        id: banner

        readonly property string error: window.status.errorMessage

        anchors.bottom: parent.bottom
        anchors.left: sidebar.right
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
