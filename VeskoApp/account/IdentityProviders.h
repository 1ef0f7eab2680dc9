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

// The sign-in that another vouches for, as far as the user sees it. One at a time; main thread.
// Throws AuthFailure.
class IdentityProviders {
public:
    virtual ~IdentityProviders() = default;

    // Shows Google's page; done when it has led back here.
    virtual Task<GoogleCode> googleAuthorizationCode(
        std::string clientID, std::string nonce, std::string verifier)
        = 0;
    // Ends what is under way as `cancelled`.
    virtual void cancel() = 0;
};

} // namespace vesko
