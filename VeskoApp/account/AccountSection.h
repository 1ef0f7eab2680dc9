#pragma once

#include "VeskoApp/account/AccountStore.h"

namespace vesko {

// What the account section of the settings says and does for a user who is signed in; signed out,
// it shows SignInChoices. It has no line for failures: a deletion that failed leaves the user
// signed in, and its message shows in the sign-in form once there is one again. The store must
// outlive it.
class AccountSection : public QObject {
    Q_OBJECT
    // Whether this build has accounts; else there is no such section.
    Q_PROPERTY(bool available READ available CONSTANT)
    Q_PROPERTY(bool signedIn READ signedIn NOTIFY changed)
    // Both empty while signed out.
    Q_PROPERTY(QString signedInAs READ signedInAs NOTIFY changed)
    Q_PROPERTY(QString method READ method NOTIFY changed)
    // The user is being asked whether the account is really to go.
    Q_PROPERTY(bool confirmsDeletion READ confirmsDeletion NOTIFY confirmsDeletionChanged)

public:
    explicit AccountSection(AccountStore& accounts, QObject* parent = nullptr);

    bool available() const { return m_accounts.available(); }
    bool signedIn() const { return m_accounts.signedIn(); }
    QString signedInAs() const;
    QString method() const;
    bool confirmsDeletion() const { return m_confirmsDeletion; }

    Q_INVOKABLE void signOut();
    Q_INVOKABLE void askToDelete();
    Q_INVOKABLE void keepAccount();
    // Only in answer to the question.
    Q_INVOKABLE void deleteAccount();

Q_SIGNALS:
    void changed();
    void confirmsDeletionChanged();

private:
    void setConfirmsDeletion(bool confirms);

    AccountStore& m_accounts;
    bool m_confirmsDeletion = false;
};

} // namespace vesko
