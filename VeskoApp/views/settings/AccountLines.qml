import QtQuick

// Who is signed in, or the ways to sign in.
Section {
    id: section

    required property var account
    required property var signIn

    visible: account.available
    title: qsTranslate("Vesko", "Account")

    SignInForm {
        width: parent.width
        visible: !section.account.signedIn
        signIn: section.signIn
    }
    SettingLine {
        width: parent.width
        visible: section.account.signedIn
        name: qsTranslate("Vesko", "Signed in as")

        Words {
            text: section.account.signedInAs
            color: Theme.quiet
        }
    }
    SettingLine {
        width: parent.width
        visible: section.account.signedIn
        name: qsTranslate("Vesko", "Method")

        Words {
            text: section.account.method
            color: Theme.quiet
        }
    }
    Flow {
        width: parent.width
        visible: section.account.signedIn
        spacing: Theme.space

        PushButton {
            text: qsTranslate("Vesko", "Sign out")
            onClicked: section.account.signOut()
        }
        PushButton {
            text: qsTranslate("Vesko", "Delete account…")
            destructive: true
            onClicked: section.account.askToDelete()
        }
    }
    Sheet {
        title: qsTranslate("Vesko", "Delete your Vesko account?")
        text: qsTranslate("Vesko", "Your account is removed from Vesko's service. Notes and recordings on this Mac are kept.")
        agreeText: qsTranslate("Vesko", "Delete account")
        destructive: true
        irrevocable: true
        visible: section.account.confirmsDeletion
        onAccepted: section.account.deleteAccount()
        onRejected: section.account.keepAccount()
    }
}
