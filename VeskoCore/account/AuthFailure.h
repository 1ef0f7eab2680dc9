#pragma once

#include <exception>
#include <optional>
#include <string_view>

namespace vesko {

// Why a sign-in, or a call of the account service, failed.
class AuthFailure : public std::exception {
public:
    enum Kind {
        invalidEmail,
        invalidCode,
        codeExpired,
        tooManyAttempts,
        rateLimited,
        providerUnconfigured,
        cancelled,
        unauthorized,
        offline,
        unavailable,
    };

    AuthFailure(Kind kind)
        : m_kind(kind)
    {
    }
    // What a refusal of the service means: its own code says more than the status.
    AuthFailure(std::optional<std::string_view> serverCode, int status);

    Kind kind() const { return m_kind; }
    // The name of the kind, for a log.
    const char* name() const;
    // A key for the catalogues.
    const char* message() const;
    const char* what() const noexcept override { return message(); }

    friend bool operator==(const AuthFailure& a, const AuthFailure& b)
    {
        return a.m_kind == b.m_kind;
    }

private:
    Kind m_kind;
};

} // namespace vesko
