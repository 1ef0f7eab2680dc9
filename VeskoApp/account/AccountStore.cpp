#include "VeskoApp/account/AccountStore.h"

#include "VeskoApp/account/AccountLog.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/account/AuthNonce.h"
#include "VeskoCore/account/EmailAddress.h"
#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <utility>

namespace vesko {

Q_LOGGING_CATEGORY(accountLog, "app.vesko.account")

namespace {

constexpr const char* accountSetting = "veskoAccount";

const char* rawValue(AuthProvider provider)
{
    return jsonNames<AuthProvider>[static_cast<std::size_t>(provider)].data();
}

AuthFailure failureOf(const std::exception_ptr& error)
{
    try {
        std::rethrow_exception(error);
    } catch (const AuthFailure& failure) {
        return failure;
    } catch (const URLError&) {
        return AuthFailure::offline;
    } catch (...) {
        return AuthFailure::unavailable;
    }
}

bool isAuthFailure(const std::exception_ptr& error)
{
    try {
        std::rethrow_exception(error);
    } catch (const AuthFailure&) {
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

// Holds `busy` for one sign-in, however that ends.
class AccountStore::Busy {
public:
    explicit Busy(AccountStore& store)
        : m_store(store)
    {
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { m_store.setBusy(std::nullopt); }

private:
    AccountStore& m_store;
};

AccountStore::AccountStore(const AccountDeployment& deployment, SessionVault& vault,
    IdentityProviders& identities, SettingsStore& settings, HttpTransport transport)
    : m_client(deployment.baseURL, deployment.google, std::move(transport))
    , m_googleClientID(deployment.googleClientID)
    , m_required(deployment.required)
    , m_vault(vault)
    , m_identities(identities)
    , m_settings(settings)
{
}

void AccountStore::restoreAtLaunch()
{
    if (m_settings.value(accountSetting))
        run(restore());
    else if (m_client.configured())
        run(restoreWithoutCopy());
    else
        setState(SignedOut());
}

// The copy is lost with the settings, or could not be written; the session is not.
Task<> AccountStore::restoreWithoutCopy()
{
    const int session = m_session;
    bool hasToken = false;
    try {
        hasToken = co_await m_vault.has();
    } catch (const std::exception&) {
        // Who can't be asked knows of no session.
    }
    if (m_session != session)
        co_return;
    if (hasToken)
        co_await restore();
    else
        setState(SignedOut());
}

Task<> AccountStore::restore()
{
    const int session = m_session;
    const auto token = co_await storedToken();
    // Whoever signed in or out meanwhile is not to be overruled by what was before.
    if (m_session != session)
        co_return;
    if (!token) {
        setState(SignedOut());
        co_return;
    }
    const auto cached = remembered();
    std::exception_ptr error;
    try {
        auto account = co_await m_sessionNetwork.run(
            [client = m_client, token = *token](
                std::stop_token stop) { return client.account(token, std::move(stop)); });
        if (m_session != session)
            co_return;
        remember(account);
        setState(std::move(account));
        co_return;
    } catch (const std::exception&) {
        error = std::current_exception();
    }
    if (m_session != session)
        co_return;
    if (failureOf(error) == AuthFailure::unauthorized) {
        co_await endSession();
    } else if (cached) {
        setState(*cached); // a session survives being offline
    } else {
        setState(SignedOut());
        setMessage(isAuthFailure(error) ? failureOf(error).message() : "");
    }
}

Task<> AccountStore::startEmail(std::string text)
{
    auto email = EmailAddress::normalized(text);
    if (!email) {
        setMessage(AuthFailure(AuthFailure::invalidEmail).message());
        co_return;
    }
    if (!begin(AuthProvider::email))
        co_return;
    const Busy busy(*this);
    try {
        co_await m_signInNetwork.run([client = m_client, email = *email](std::stop_token stop) {
            client.startEmail(email, std::move(stop));
        });
        setMessage(
            translated(L10N_KEY("Vesko", "We sent a 6-digit code to %1. It works for 10 minutes."))
                .arg(QString::fromStdString(*email)));
        setPendingEmail(std::move(email));
    } catch (const std::exception&) {
        fail(std::current_exception(), AuthProvider::email);
    }
}

Task<> AccountStore::verifyEmail(std::string code)
{
    const std::string digits(trimmed(code));
    if (!m_pendingEmail)
        co_return;
    if (!EmailAddress::isCode(digits)) {
        setMessage(AuthFailure(AuthFailure::invalidCode).message());
        co_return;
    }
    if (!begin(AuthProvider::email))
        co_return;
    const Busy busy(*this);
    try {
        co_await complete(
            [client = m_client, email = *m_pendingEmail, digits](std::stop_token stop) {
                return client.verifyEmail(email, digits, std::move(stop));
            },
            AuthProvider::email);
        setPendingEmail(std::nullopt);
    } catch (const std::exception&) {
        const auto failure = failureOf(std::current_exception());
        if (failure == AuthFailure::codeExpired || failure == AuthFailure::tooManyAttempts)
            setPendingEmail(std::nullopt);
        fail(std::current_exception(), AuthProvider::email);
    }
}

Task<> AccountStore::signInWithGoogle()
{
    if (!m_googleClientID) {
        setMessage(AuthFailure(AuthFailure::providerUnconfigured).message());
        co_return;
    }
    if (!begin(AuthProvider::google))
        co_return;
    const Busy busy(*this);
    try {
        const std::string clientID = *m_googleClientID;
        const std::string nonce = AuthNonce::make(), verifier = AuthNonce::make();
        const GoogleCode google
            = co_await m_identities.googleAuthorizationCode(clientID, nonce, verifier);
        const std::string idToken = co_await m_signInNetwork.run(
            [client = m_client, google, clientID, verifier](std::stop_token stop) {
                return client.exchangeGoogle(
                    google.code, google.redirectURI, clientID, verifier, std::move(stop));
            });
        co_await complete(
            [client = m_client, idToken, nonce](std::stop_token stop) {
                return client.signInWithGoogle(idToken, nonce, std::move(stop));
            },
            AuthProvider::google);
    } catch (const std::exception&) {
        fail(std::current_exception(), AuthProvider::google);
    }
}

Task<> AccountStore::signOut()
{
    if (const auto token = co_await storedToken()) {
        try {
            co_await m_sessionNetwork.run(
                [client = m_client, token = *token](
                    std::stop_token stop) { client.signOut(token, std::move(stop)); });
        } catch (const std::exception&) {
            // The user is signed out here, whether or not the service has heard of it.
        }
    }
    co_await endSession();
    setMessage(L10N_KEY("Vesko", "Signed out. Your notes stay on this Mac."));
    usage(UsageEvent::signedOut);
}

Task<bool> AccountStore::deleteAccount()
{
    const auto token = co_await storedToken();
    if (!token)
        co_return false;
    try {
        co_await m_sessionNetwork.run([client = m_client, token = *token](std::stop_token stop) {
            client.deleteAccount(token, std::move(stop));
        });
    } catch (const std::exception&) {
        const auto error = std::current_exception();
        const AuthFailure unavailable(AuthFailure::unavailable);
        setMessage((isAuthFailure(error) ? failureOf(error) : unavailable).message());
        co_return false;
    }
    co_await endSession();
    setMessage(L10N_KEY(
        "Vesko", "Your Vesko account was deleted. Notes and recordings on this Mac were kept."));
    usage(UsageEvent::accountDeleted);
    co_return true;
}

bool AccountStore::begin(AuthProvider provider)
{
    if (m_busy)
        return false;
    if (!m_client.configured()) {
        setMessage(AuthFailure(AuthFailure::providerUnconfigured).message());
        return false;
    }
    setBusy(provider);
    setMessage("");
    usage(UsageEvent::signInStarted);
    return true;
}

template <class Call>
Task<> AccountStore::complete(Call call, AuthProvider provider)
{
    SignInReply reply = co_await m_signInNetwork.run(std::move(call));
    try {
        co_await m_vault.save(Secret::taken(reply.session.token));
    } catch (const std::exception&) {
        throw AuthFailure(AuthFailure::unavailable);
    }
    ++m_session;
    remember(reply.account);
    setState(std::move(reply.account));
    setMessage("");
    qCInfo(accountLog, "sign_in_succeeded provider=%s", rawValue(provider));
    usage(UsageEvent::signInSucceeded);
}

void AccountStore::fail(const std::exception_ptr& error, AuthProvider provider)
{
    const auto failure = failureOf(error);
    setMessage(failure.message());
    qCInfo(accountLog, "sign_in_failed provider=%s reason=%s", rawValue(provider), failure.name());
    usage(
        failure == AuthFailure::cancelled ? UsageEvent::signInCancelled : UsageEvent::signInFailed);
}

// Nothing, too, when the vault can't be asked.
Task<std::optional<Secret>> AccountStore::storedToken()
{
    try {
        co_return co_await m_vault.load();
    } catch (const std::exception&) {
        co_return std::nullopt;
    }
}

Task<> AccountStore::endSession()
{
    ++m_session;
    co_await m_vault.remove();
    m_settings.remove(accountSetting);
    setPendingEmail(std::nullopt);
    setState(SignedOut());
}

void AccountStore::remember(const VeskoAccount& account)
{
    try {
        const auto text = JsonWriter::write(account, JsonWriter::Form::pretty);
        const auto* const bytes = reinterpret_cast<const std::byte*>(text.data());
        m_settings.set(accountSetting, std::vector<std::byte>(bytes, bytes + text.size()));
    } catch (const JsonError&) {
        // A date beyond the calendar: the service is asked again at the next start.
    }
}

std::optional<VeskoAccount> AccountStore::remembered() const
{
    const auto bytes = m_settings.get<std::vector<std::byte>>(accountSetting);
    if (!bytes)
        return std::nullopt;
    try {
        std::string text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
        return JsonDocument(std::move(text), JsonOrigin::service).as<VeskoAccount>();
    } catch (const JsonError&) {
        return std::nullopt;
    }
}

void AccountStore::usage(UsageEvent event) const
{
    if (onUsage)
        onUsage(event);
}

void AccountStore::setState(State state)
{
    if (m_state == state)
        return;
    m_state = std::move(state);
    Q_EMIT stateChanged();
}

void AccountStore::setBusy(std::optional<AuthProvider> provider)
{
    if (m_busy == provider)
        return;
    m_busy = provider;
    Q_EMIT busyChanged();
}

void AccountStore::setMessage(const char* key)
{
    setMessage(translated(key));
}

void AccountStore::setMessage(QString message)
{
    if (m_message == message)
        return;
    m_message = std::move(message);
    Q_EMIT messageChanged();
}

void AccountStore::setPendingEmail(std::optional<std::string> email)
{
    if (m_pendingEmail == email)
        return;
    m_pendingEmail = std::move(email);
    Q_EMIT pendingEmailChanged();
}

} // namespace vesko
