#pragma once

#include "VeskoApp/async/Task.h"

#include <string>

namespace vesko {

// What Google's page gives for a user who has signed in there.
struct GoogleCode {
    std::string code;
    std::string redirectURI; // to which the code was given

    bool operator==(const GoogleCode&) const = default;
};

// The two sign-ins that others vouch for, as far as the user sees them. One at a time; main thread.
// Both throw AuthFailure.
class IdentityProviders {
public:
    virtual ~IdentityProviders() = default;

    // Apple's identity token for who the user is there.
    virtual Task<std::string> appleIdentityToken(std::string nonceHash) = 0;
    // Shows Google's page; done when it has led back here.
    virtual Task<GoogleCode> googleAuthorizationCode(
        std::string clientID, std::string nonce, std::string verifier)
        = 0;
    // Ends what is under way as `cancelled`.
    virtual void cancel() = 0;
};

} // namespace vesko
