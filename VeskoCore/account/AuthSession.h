#pragma once

#include "VeskoCore/account/VeskoAccount.h"

namespace vesko {

// What the account service hands out at a sign-in. Only the service says when it has ended, and
// nobody here compares its date with a clock.
struct AuthSession {
    std::string token;
    Date expiresAt;

    bool operator==(const AuthSession&) const = default;
};

// The body of a successful sign-in.
struct SignInReply {
    AuthSession session;
    VeskoAccount account;

    bool operator==(const SignInReply&) const = default;
};

template <>
inline constexpr std::tuple jsonFields<AuthSession>{
    JsonField{ "expiresAt", &AuthSession::expiresAt },
    JsonField{ "token", &AuthSession::token },
};

template <>
inline constexpr std::tuple jsonFields<SignInReply>{
    JsonField{ "account", &SignInReply::account },
    JsonField{ "session", &SignInReply::session },
};

} // namespace vesko
