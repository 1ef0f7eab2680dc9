#include "VeskoApp/account/AccountSection.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QStringList>

namespace vesko {

namespace {

QString nameOf(AuthProvider provider)
{
    switch (provider) {
    case AuthProvider::apple:
        return translated(L10N_KEY("Vesko", "Apple"));
    case AuthProvider::google:
        return translated(L10N_KEY("Vesko", "Google"));
    case AuthProvider::email:
        return translated(L10N_KEY("Vesko", "Email"));
    }
    return {};
}

Task<> deletion(AccountStore& accounts)
{
    co_await accounts.deleteAccount();
}

} // namespace

AccountSection::AccountSection(AccountStore& accounts, QObject* parent)
    : QObject(parent)
    , m_accounts(accounts)
{
    connect(&accounts, &AccountStore::stateChanged, this, [this] {
        if (!signedIn())
            keepAccount(); // there is none left to ask about
        Q_EMIT changed();
    });
}

QString AccountSection::signedInAs() const
{
    const auto* const account = m_accounts.account();
    if (!account)
        return {};
    return account->email ? QString::fromStdString(*account->email)
                          : translated(L10N_KEY("Vesko", "Apple ID with hidden email"));
}

QString AccountSection::method() const
{
    QStringList names;
    if (const auto* const account = m_accounts.account())
        for (const auto provider : account->providers)
            names << nameOf(provider);
    return names.join(QStringLiteral(", "));
}

void AccountSection::signOut()
{
    m_accounts.run(m_accounts.signOut());
}

void AccountSection::askToDelete()
{
    setConfirmsDeletion(signedIn());
}

void AccountSection::keepAccount()
{
    setConfirmsDeletion(false);
}

void AccountSection::deleteAccount()
{
    if (!m_confirmsDeletion)
        return;
    setConfirmsDeletion(false);
    m_accounts.run(deletion(m_accounts));
}

void AccountSection::setConfirmsDeletion(bool confirms)
{
    if (m_confirmsDeletion == confirms)
        return;
    m_confirmsDeletion = confirms;
    Q_EMIT confirmsDeletionChanged();
}

} // namespace vesko
