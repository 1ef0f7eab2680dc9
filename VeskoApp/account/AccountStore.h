#pragma once

#include "VeskoApp/account/AccountDeployment.h"
#include "VeskoApp/account/IdentityProviders.h"
#include "VeskoApp/account/SessionVault.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoCore/account/AccountClient.h"
#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/analytics/UsageEvent.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <variant>

namespace vesko {

// Who is signed in, and the ways to sign in and out. The token of the session stands in the vault;
// a copy of the account in the settings says that there is one, and stands in for the service as
// long as that can't be reached. A session has ended when the service says so, and the only moment
// at which it is asked is `restore`.
//
// Failures end in `message` and are never thrown. Main thread; nothing here waits.
class AccountStore : public QObject {
    Q_OBJECT

public:
    struct Unknown { // nobody has looked yet
        bool operator==(const Unknown&) const = default;
    };
    struct SignedOut {
        bool operator==(const SignedOut&) const = default;
    };
    using State = std::variant<Unknown, SignedOut, VeskoAccount>;

    // Without a transport it is libcurl's, as AccountClient says. What is referred to must outlive
    // the store.
    AccountStore(const AccountDeployment& deployment, SessionVault& vault,
        IdentityProviders& identities, SettingsStore& settings, HttpTransport transport = {});

    // At the start of the program: restores the session of an earlier run. On a machine without a
    // copy of the account the secret store is first asked whether it has a token at all, which
    // never makes it ask for a password.
    void restoreAtLaunch();
    // Runs an operation to its end, whatever becomes of the window that asked for it.
    void run(Task<> operation) { m_tasks.spawn(std::move(operation)); }

    Task<> restore();
    Task<> startEmail(std::string text);
    // Checks the code for the address that it was sent to; without one, nothing happens.
    Task<> verifyEmail(std::string code);
    Task<> signInWithGoogle();
    // Ends a sign-in that waits for another program.
    void cancelSignIn() { m_identities.cancel(); }
    // Takes back that a code was asked for, to ask for one elsewhere.
    void forgetPendingEmail() { setPendingEmail(std::nullopt); }
    // Whatever the service says, nobody is signed in here afterwards.
    Task<> signOut();
    // True when the account is gone.
    Task<bool> deleteAccount();

    const State& state() const { return m_state; }
    // Null unless signed in.
    const VeskoAccount* account() const { return std::get_if<VeskoAccount>(&m_state); }
    bool signedIn() const { return account() != nullptr; }
    bool signedOut() const { return std::holds_alternative<SignedOut>(m_state); }
    // The sign-in under way; never more than one.
    std::optional<AuthProvider> busy() const { return m_busy; }
    // The line for the user; empty for none.
    const QString& message() const { return m_message; }
    // To which a code was sent.
    const std::optional<std::string>& pendingEmail() const { return m_pendingEmail; }
    // Whether this build lets nobody dictate without an account.
    bool required() const { return m_required; }
    // Whether what needs an account is open to the user.
    bool admits() const { return !m_required || signedIn(); }
    // Whether this build has accounts at all.
    bool available() const { return m_client.configured(); }
    bool googleAvailable() const { return m_googleClientID && m_client.configured(); }

    // Hears of each event that may be counted.
    std::function<void(UsageEvent)> onUsage;

Q_SIGNALS:
    void stateChanged();
    void busyChanged();
    void messageChanged();
    void pendingEmailChanged();

private:
    class Busy;

    bool begin(AuthProvider provider);
    template <class Call>
    Task<> complete(Call call, AuthProvider provider);
    void fail(const std::exception_ptr& error, AuthProvider provider);
    Task<> restoreWithoutCopy();
    Task<std::optional<Secret>> storedToken();
    Task<> endSession();
    void remember(const VeskoAccount& account);
    std::optional<VeskoAccount> remembered() const;

    void usage(UsageEvent event) const;
    void setState(State state);
    void setBusy(std::optional<AuthProvider> provider);
    void setMessage(const char* key);
    void setMessage(QString message);
    void setPendingEmail(std::optional<std::string> email);

    AccountClient m_client;
    std::optional<std::string> m_googleClientID;
    bool m_required;
    SessionVault& m_vault;
    IdentityProviders& m_identities;
    SettingsStore& m_settings;

    State m_state;
    std::optional<AuthProvider> m_busy;
    QString m_message;
    std::optional<std::string> m_pendingEmail;
    // Counts the sessions that began or ended here, by which an answer about an older one is known.
    int m_session = 0;

    // Last, so that tasks end before what they use.
    Worker m_signInNetwork; // a sign-in need not wait for an old session's answer
    Worker m_sessionNetwork;
    TaskScope m_tasks;
};

} // namespace vesko
