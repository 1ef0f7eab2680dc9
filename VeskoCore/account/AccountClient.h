#pragma once

#include "VeskoCore/account/AuthSession.h"
#include "VeskoCore/account/GoogleAuthorization.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <stop_token>

namespace vesko {

// The only client of the account service, and of the endpoint at which Google changes a code into
// an identity. Holds nothing that changes; any thread may use it. One call is one exchange, and
// nothing is sent twice.
//
// All throw AuthFailure for what the service refuses, URLError for an exchange that failed and
// JsonError for an answer that is not what was asked for.
class AccountClient {
public:
    // Without a base URL there is no service: every call of it is providerUnconfigured, and nothing
    // is sent. Without a transport it uses libcurl: 20 seconds without progress, 60 for the whole
    // exchange, answers of up to 1 MiB, no cookies, no cache.
    explicit AccountClient(std::optional<std::string> baseURL, GoogleEndpoints google = {},
        HttpTransport transport = {});

    bool configured() const { return m_baseURL.has_value(); }
    const GoogleEndpoints& google() const { return m_google; }

    // Has the service send a code to the address.
    void startEmail(const std::string& email, std::stop_token stop) const;
    SignInReply verifyEmail(
        const std::string& email, const std::string& code, std::stop_token stop) const;
    SignInReply signInWithGoogle(
        const std::string& idToken, const std::string& nonce, std::stop_token stop) const;

    // Whose session the token is.
    VeskoAccount account(std::string_view token, std::stop_token stop) const;
    void signOut(std::string_view token, std::stop_token stop) const;
    void deleteAccount(std::string_view token, std::stop_token stop) const;

    // The identity token for a code of Google's. Everything but a failed exchange is `unavailable`.
    std::string exchangeGoogle(const std::string& code, const std::string& redirectURI,
        const std::string& clientID, const std::string& verifier, std::stop_token stop) const;

private:
    std::string call(const std::string& method, const std::string& path,
        std::optional<std::string_view> token, std::optional<std::string> body,
        std::stop_token stop) const;
    template <class Body>
    std::string post(const std::string& path, const Body& body, std::stop_token stop) const;
    HTTPResult exchange(const HttpRequest& request, std::stop_token stop) const;

    std::optional<std::string> m_baseURL;
    GoogleEndpoints m_google;
    HttpTransport m_transport;
};

} // namespace vesko
