#include "VeskoApp/account/SystemIdentityProviders.h"

#include "VeskoApp/account/AccountLog.h"
#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/base/Text.h"

#include <utility>

namespace vesko {

namespace {

constexpr double patience = 600; // seconds

bool hasScheme(std::string_view address, std::string_view scheme)
{
    // Browsers write schemes in lower case, whatever was registered.
    return address.size() > scheme.size() && address[scheme.size()] == ':'
        && sameIgnoringCase(address.substr(0, scheme.size()), scheme);
}

} // namespace

SystemIdentityProviders::SystemIdentityProviders(
    Browser& browser, EventClock& clock, GoogleEndpoints google)
    : m_browser(browser)
    , m_google(std::move(google))
    , m_limit(clock)
{
}

Task<GoogleCode> SystemIdentityProviders::googleAuthorizationCode(
    std::string clientID, std::string nonce, std::string verifier)
{
    auto scheme = googleRedirectScheme(clientID);
    const GoogleAuthorization question(std::move(clientID), std::move(nonce), std::move(verifier));
    m_web = Web{ .scheme = std::move(scheme), .redirect = {} };
    const auto coming = m_web->redirect;
    m_limit.start(patience, [this] { cancel(); });
    if (!m_browser.open(question.url(m_google))) {
        end(std::nullopt);
        throw AuthFailure(AuthFailure::unavailable);
    }
    const auto redirect = co_await coming;
    if (!redirect)
        throw AuthFailure(AuthFailure::cancelled);
    co_return GoogleCode{ question.codeIn(*redirect), question.redirectURI() };
}

void SystemIdentityProviders::cancel()
{
    end(std::nullopt);
}

void SystemIdentityProviders::handleRedirect(const std::string& address)
{
    if (m_web && hasScheme(address, m_web->scheme))
        end(address);
    else
        qCInfo(accountLog, "redirect_refused");
}

void SystemIdentityProviders::end(std::optional<std::string> redirect)
{
    m_limit.cancel();
    if (const auto web = std::exchange(m_web, std::nullopt))
        web->redirect.set(std::move(redirect));
}

} // namespace vesko
