#pragma once

#include <string>
#include <string_view>

namespace vesko {

// Where Google is. The values are those that Google publishes at
// https://accounts.google.com/.well-known/openid-configuration.
struct GoogleEndpoints {
    std::string authorization = "https://accounts.google.com/o/oauth2/v2/auth";
    std::string token = "https://oauth2.googleapis.com/token";

    bool operator==(const GoogleEndpoints&) const = default;
};

// Whether the text has the form of a client id that Google gives to installed applications.
bool isGoogleClientID(std::string_view text);

// The scheme by which Google's page leads back to an installed application: its client id reversed.
// https://developers.google.com/identity/protocols/oauth2/native-app
std::string googleRedirectScheme(std::string_view clientID);

// One question to Google who the user is: the authorization code flow of OAuth 2 with PKCE (RFC
// 7636), for an installed application, which has no secret.
class GoogleAuthorization {
public:
    // Makes a state of its own, by which the answer to this question is told from any other.
    GoogleAuthorization(std::string clientID, std::string nonce, std::string verifier);

    // The page to show to the user.
    std::string url(const GoogleEndpoints& google) const;
    const std::string& redirectURI() const { return m_redirectURI; }

    // The code that a redirect carries. Throws AuthFailure: `unavailable` for a redirect without
    // the state of this question or without a code, `cancelled` if it tells of an error, whatever
    // the error is.
    std::string codeIn(std::string_view redirect) const;

private:
    std::string m_clientID;
    std::string m_nonce;
    std::string m_verifier;
    std::string m_redirectURI;
    std::string m_state;
};

} // namespace vesko
