pragma ComponentBehavior: Bound

import QtQuick

// The window of the first run, step by step.
VeskoWindow {
    id: window

    required property var onboarding
    required property var signIn
    required property var status

    // The keyboard stays with the buttons: all that the shown step says is said once.
    property bool begun: false

    function read() {
        const words = [onboarding.placeText];
        collect(steps, words);
        told.tell(words.join("\n"));
    }
    function collect(item, words) {
        if (!item.visible)
            return;
        if (item instanceof Words && item.text)
            words.push(item.text);
        for (const child of Array.from(item.children))
            collect(child, words);
    }

    title: qsTranslate("Vesko", "Welcome to Vesko")
    width: 640
    height: 560
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height

    onActiveChanged: {
        if (begun || !active)
            return;
        begun = true;
        read();
    }

    Announcement {
        id: told
    }
    Announcement {
        text: window.onboarding.notice
    }
    FocusScope {
        anchors.fill: parent
        focus: true
        Keys.onReturnPressed: window.onboarding.goOn()
        Keys.onEnterPressed: window.onboarding.goOn()
        Keys.onUpPressed: steps.scroll(-40)
        Keys.onDownPressed: steps.scroll(40)

        ScrollPage {
            id: steps

            // Follows the step, as it comes into sight.
            property string shown: "welcome"

            function scroll(by: real) {
                contentY = Math.max(0, Math.min(contentHeight - height, contentY + by));
            }

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: footer.top
            contentHeight: step.y + step.height + 24

            Connections {
                target: window.onboarding
                function onStepChanged() {
                    if (steps.shown === window.onboarding.step)
                        return;
                    steps.shown = window.onboarding.step;
                    steps.contentY = 0;
                    coming.restart();
                    window.read();
                }
            }
            NumberAnimation {
                id: coming

                target: steps
                property: "opacity"
                from: 0
                to: 1
                duration: Theme.reduceMotion ? 0 : 220
                easing.type: Easing.OutQuad
            }

            Column {
                id: step

                x: 52
                y: 40
                width: steps.width - 2 * x

                OnboardingWelcome {
                    width: parent.width
                    visible: steps.shown === "welcome"
                }
                OnboardingHowTo {
                    width: parent.width
                    visible: steps.shown === "howTo"
                    gestureKey: window.onboarding.gestureKey
                    shortcut: window.delegate.shortcut
                    desktopKeys: window.delegate.desktopKeys
                    status: window.status
                }
                Column {
                    width: parent.width
                    visible: steps.shown === "permissions"
                    spacing: 14

                    Words {
                        width: parent.width
                        text: qsTranslate("Vesko", "Allow access")
                        font.pixelSize: Theme.title
                        font.weight: Font.DemiBold
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.Heading
                    }
                    Words {
                        width: parent.width
                        text: qsTranslate("Vesko", "macOS asks once for each. You can change them later in Settings.")
                        color: Theme.quiet
                        wrapMode: Text.Wrap
                    }
                    PermissionList {
                        width: parent.width
                        permissions: window.onboarding.permissions
                        onPressed: row => window.onboarding.pressPermission(row)
                    }
                    Words {
                        width: parent.width
                        text: window.onboarding.notice
                        lineHeight: Theme.lineHeight
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.StatusBar
                    }
                }
                Column {
                    width: parent.width
                    visible: steps.shown === "account"
                    spacing: 14

                    Words {
                        width: parent.width
                        text: window.onboarding.signedIn ? qsTranslate("Vesko", "You are signed in")
                                                         : qsTranslate("Vesko", "Create your Vesko account")
                        font.pixelSize: Theme.title
                        font.weight: Font.DemiBold
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.Heading
                    }
                    Words {
                        width: parent.width
                        visible: !window.onboarding.signedIn
                        text: qsTranslate("Vesko", "Notes and recordings stay on this Mac.")
                        color: Theme.quiet
                        wrapMode: Text.Wrap
                    }
                    SignInForm {
                        width: parent.width
                        topPadding: 8
                        visible: !window.onboarding.signedIn
                        signIn: window.signIn
                    }
                    Row {
                        visible: window.onboarding.signedIn
                        spacing: 8

                        Icon {
                            name: "check-circle"
                            color: Theme.accent
                            size: 20
                        }
                        Words {
                            text: window.onboarding.accountName
                        }
                    }
                }
            }
        }

        Item {
            id: footer

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 74

            Rectangle {
                width: parent.width
                height: 1
                color: Theme.hairline
            }
            Row {
                anchors.left: parent.left
                anchors.leftMargin: 28
                anchors.verticalCenter: parent.verticalCenter
                spacing: 12

                Row {
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 6

                    Repeater {
                        model: window.onboarding.stepCount

                        Rectangle {
                            required property int index

                            width: index === window.onboarding.place ? 18 : 7
                            height: 7
                            radius: 4
                            color: index === window.onboarding.place ? Theme.accent : Theme.outline

                            Behavior on width {
                                NumberAnimation { duration: Theme.calm }
                            }
                        }
                    }
                }
                Words {
                    anchors.verticalCenter: parent.verticalCenter
                    text: window.onboarding.placeText
                    font.pixelSize: Theme.small
                    color: Theme.quiet
                }
            }
            Row {
                anchors.right: parent.right
                anchors.rightMargin: 28
                anchors.verticalCenter: parent.verticalCenter
                spacing: Theme.space

                PushButton {
                    visible: window.onboarding.canGoBack
                    text: qsTranslate("Vesko", "Back")
                    flat: true
                    onClicked: window.onboarding.goBack()
                }
                PushButton {
                    visible: window.onboarding.offersNotNow
                    text: qsTranslate("Vesko", "Not now")
                    onClicked: window.onboarding.complete()
                }
                PushButton {
                    text: window.onboarding.defaultTitle
                    prominent: true
                    focus: true
                    enabled: window.onboarding.defaultEnabled
                    onClicked: window.onboarding.goOn()
                }
            }
        }
    }
}
