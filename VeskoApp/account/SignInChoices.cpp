#include "VeskoApp/account/SignInChoices.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/account/EmailAddress.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

SignInChoices::SignInChoices(AccountStore& accounts, QObject* parent)
    : QObject(parent)
    , m_accounts(accounts)
{
    for (const auto happens : { &AccountStore::busyChanged, &AccountStore::messageChanged,
             &AccountStore::pendingEmailChanged })
        connect(&accounts, happens, this, &SignInChoices::changed);
}

void SignInChoices::setEmail(const QString& email)
{
    if (m_email == email)
        return;
    m_email = email;
    Q_EMIT changed();
}

void SignInChoices::setCode(const QString& code)
{
    if (m_code == code)
        return;
    m_code = code;
    Q_EMIT changed();
}

QString SignInChoices::codeNote() const
{
    return translated(L10N_KEY("Vesko", "Enter the 6-digit code sent to %1"))
        .arg(QString::fromStdString(m_accounts.pendingEmail().value_or("")));
}

QString SignInChoices::verifyTitle() const
{
    return m_accounts.busy() == AuthProvider::email ? translated(L10N_KEY("Vesko", "Checking…"))
                                                    : translated(L10N_KEY("Vesko", "Sign in"));
}

bool SignInChoices::canVerify() const
{
    return !m_accounts.busy() && EmailAddress::isCode(m_code.toStdString());
}

bool SignInChoices::canSendCode() const
{
    return !m_accounts.busy() && EmailAddress::normalized(m_email.toStdString());
}

QString SignInChoices::googleHelp() const
{
    return m_accounts.googleAvailable()
        ? translated(L10N_KEY("Vesko", "Opens Google in a private sign-in window"))
        : translated(L10N_KEY("Vesko", "Google sign-in is not configured in this build"));
}

void SignInChoices::sendCode()
{
    m_accounts.run(m_accounts.startEmail(m_email.toStdString()));
}

void SignInChoices::verify()
{
    m_accounts.run(m_accounts.verifyEmail(m_code.toStdString()));
}

void SignInChoices::useAnotherEmail()
{
    m_accounts.forgetPendingEmail();
}

void SignInChoices::signInWithGoogle()
{
    m_accounts.run(m_accounts.signInWithGoogle());
}

void SignInChoices::cancel()
{
    m_accounts.cancelSignIn();
}

} // namespace vesko
