#pragma once

#include "VeskoApp/account/AccountStore.h"

namespace vesko {

// What the sign-in form says and allows: the ways to sign in, or, once a code was sent, the field
// for it. The form itself holds nothing but its layout. The store must outlive it.
class SignInChoices : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString email READ email WRITE setEmail NOTIFY changed)
    Q_PROPERTY(QString code READ code WRITE setCode NOTIFY changed)
    // The code is asked for, and no other way to sign in is shown.
    Q_PROPERTY(bool asksForCode READ asksForCode NOTIFY changed)
    Q_PROPERTY(QString codeNote READ codeNote NOTIFY changed)
    Q_PROPERTY(QString verifyTitle READ verifyTitle NOTIFY changed)
    Q_PROPERTY(bool canVerify READ canVerify NOTIFY changed)
    Q_PROPERTY(bool canSendCode READ canSendCode NOTIFY changed)
    Q_PROPERTY(bool canUseGoogle READ canUseGoogle NOTIFY changed)
    Q_PROPERTY(QString googleHelp READ googleHelp CONSTANT)
    // The user is at Google's page; nothing but this form can take that back.
    Q_PROPERTY(bool waitsForBrowser READ waitsForBrowser NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)

public:
    explicit SignInChoices(AccountStore& accounts, QObject* parent = nullptr);

    const QString& email() const { return m_email; }
    const QString& code() const { return m_code; }
    void setEmail(const QString& email);
    void setCode(const QString& code);

    bool asksForCode() const { return m_accounts.pendingEmail().has_value(); }
    QString codeNote() const;
    QString verifyTitle() const;
    bool canVerify() const;
    bool canSendCode() const;
    bool canUseGoogle() const { return !m_accounts.busy() && m_accounts.googleAvailable(); }
    QString googleHelp() const;
    bool waitsForBrowser() const { return m_accounts.busy() == AuthProvider::google; }
    const QString& message() const { return m_accounts.message(); }

    // The button of the address field, or Return in it.
    Q_INVOKABLE void sendCode();
    Q_INVOKABLE void verify();
    Q_INVOKABLE void useAnotherEmail();
    Q_INVOKABLE void signInWithGoogle();
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void changed();

private:
    AccountStore& m_accounts;
    QString m_email;
    QString m_code;
};

} // namespace vesko
