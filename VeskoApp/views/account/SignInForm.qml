import QtQuick

// The ways to sign in, or, once a code was sent, the field for it.
Column {
    id: form

    required property var signIn

    spacing: 10

    Column {
        width: parent.width
        visible: form.signIn.asksForCode
        spacing: 10

        Words {
            width: parent.width
            text: form.signIn.codeNote
            wrapMode: Text.Wrap
        }
        Words {
            text: code.name
            font.pixelSize: Theme.small
            font.weight: Font.Medium
            color: Theme.quiet
        }
        TextBox {
            id: code

            width: parent.width
            name: qsTranslate("Vesko", "Code")
            placeholderText: qsTranslate("Vesko", "Sign-in code")
            inputMethodHints: Qt.ImhDigitsOnly
            onVisibleChanged: if (visible) forceActiveFocus(Qt.OtherFocusReason)
            onTextEdited: form.signIn.code = text
            Keys.onReturnPressed: if (form.signIn.canVerify) form.signIn.verify()

            Binding on text {
                value: form.signIn.code
            }
        }
        Row {
            spacing: Theme.space

            PushButton {
                text: form.signIn.verifyTitle
                prominent: true
                enabled: form.signIn.canVerify
                onClicked: form.signIn.verify()
            }
            PushButton {
                text: qsTranslate("Vesko", "Use another email")
                flat: true
                onClicked: {
                    form.signIn.useAnotherEmail();
                    email.forceActiveFocus(Qt.OtherFocusReason);
                }
            }
        }
    }
    Column {
        width: parent.width
        visible: !form.signIn.asksForCode
        spacing: 10

        Flow {
            width: parent.width
            spacing: Theme.space

            PushButton {
                text: qsTranslate("Vesko", "Continue with Google")
                help: form.signIn.googleHelp
                enabled: form.signIn.canUseGoogle
                onClicked: form.signIn.signInWithGoogle()
            }
            PushButton {
                visible: form.signIn.waitsForBrowser
                text: qsTranslate("Vesko", "Cancel")
                flat: true
                onClicked: form.signIn.cancel()
            }
        }
        Row {
            width: parent.width
            spacing: 12

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: (parent.width - or.width - 24) / 2
                height: 1
                color: Theme.hairline
            }
            Words {
                id: or

                text: qsTranslate("Vesko", "or")
                font.pixelSize: Theme.small
                color: Theme.quiet
            }
            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: (parent.width - or.width - 24) / 2
                height: 1
                color: Theme.hairline
            }
        }
        Row {
            width: parent.width
            spacing: Theme.space

            TextBox {
                id: email

                width: parent.width - send.width - parent.spacing
                placeholderText: qsTranslate("Vesko", "Email address")
                inputMethodHints: Qt.ImhEmailCharactersOnly
                onTextEdited: form.signIn.email = text
                Keys.onReturnPressed: if (form.signIn.canSendCode) form.signIn.sendCode()

                Binding on text {
                    value: form.signIn.email
                }
            }
            PushButton {
                id: send

                text: qsTranslate("Vesko", "Send code")
                enabled: form.signIn.canSendCode
                onClicked: form.signIn.sendCode()
            }
        }
    }
    Words {
        width: parent.width
        visible: text.length > 0
        text: form.signIn.message
        color: Theme.quiet
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StatusBar
    }
}
