#pragma once

#include "VeskoCore/account/GoogleAuthorization.h"

#include <optional>
#include <string>

namespace vesko {

// What a build was made for, as far as accounts go.
struct AccountDeployment {
    std::optional<std::string> baseURL; // of the account service; absent: there are no accounts
    std::optional<std::string> googleClientID; // absent: nobody can sign in with Google
    bool required = false; // nobody dictates without an account
    GoogleEndpoints google;

    bool operator==(const AccountDeployment&) const = default;
};

} // namespace vesko
