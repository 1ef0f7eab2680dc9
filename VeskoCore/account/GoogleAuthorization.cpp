#include "VeskoCore/account/GoogleAuthorization.h"

#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/account/AuthNonce.h"
#include "VeskoCore/account/QueryItems.h"

namespace vesko {

namespace {

constexpr std::string_view clientSuffix = ".apps.googleusercontent.com";
constexpr std::string_view schemePrefix = "com.googleusercontent.apps.";

} // namespace

bool isGoogleClientID(std::string_view text)
{
    return text.ends_with(clientSuffix);
}

std::string googleRedirectScheme(std::string_view clientID)
{
    clientID.remove_suffix(clientSuffix.size());
    return std::string(schemePrefix).append(clientID);
}

GoogleAuthorization::GoogleAuthorization(
    std::string clientID, std::string nonce, std::string verifier)
    : m_clientID(std::move(clientID))
    , m_nonce(std::move(nonce))
    , m_verifier(std::move(verifier))
    , m_redirectURI(googleRedirectScheme(m_clientID) + ":/oauth2redirect")
    , m_state(AuthNonce::make())
{
}

std::string GoogleAuthorization::url(const GoogleEndpoints& google) const
{
    return google.authorization + '?'
        + encodedQuery({
            { "client_id", m_clientID },
            { "redirect_uri", m_redirectURI },
            { "response_type", "code" },
            { "scope", "openid email" },
            { "nonce", m_nonce },
            { "state", m_state },
            { "code_challenge", AuthNonce::codeChallenge(m_verifier) },
            { "code_challenge_method", "S256" },
            { "prompt", "select_account" },
        });
}

std::string GoogleAuthorization::codeIn(std::string_view redirect) const
{
    const auto items = queryItems(redirect);
    if (!items)
        throw AuthFailure(AuthFailure::unavailable);
    const auto* const state = firstItem(*items, "state");
    const auto* const code = firstItem(*items, "code");
    if (state && state->second == m_state && code && code->second)
        return *code->second;
    throw AuthFailure(
        firstItem(*items, "error") ? AuthFailure::cancelled : AuthFailure::unavailable);
}

} // namespace vesko
