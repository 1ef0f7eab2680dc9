#include "VeskoCore/account/AuthFailure.h"

#include "VeskoCore/base/Localized.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vesko {

namespace {

struct Row {
    const char* name;
    const char* message;
};

// In the order of the kinds.
constexpr std::array rows{
    Row{ "invalidEmail", L10N_KEY("Vesko", "Enter a valid email address.") },
    Row{ "invalidCode",
        L10N_KEY("Vesko", "That code is not correct. Check the latest email and try again.") },
    Row{ "codeExpired", L10N_KEY("Vesko", "This code has expired. Request a new one.") },
    Row{ "tooManyAttempts", L10N_KEY("Vesko", "Too many attempts. Request a new code.") },
    Row{ "rateLimited", L10N_KEY("Vesko", "Too many requests. Wait a few minutes and try again.") },
    Row{ "providerUnconfigured",
        L10N_KEY("Vesko", "This sign-in method is not available yet. Choose another one.") },
    Row{ "cancelled", L10N_KEY("Vesko", "Sign-in was cancelled.") },
    Row{ "unauthorized", L10N_KEY("Vesko", "Your session has ended. Sign in again.") },
    Row{ "offline",
        L10N_KEY("Vesko", "You are offline. Your notes stay on this Mac. Reconnect to sign in.") },
    Row{ "unavailable",
        L10N_KEY("Vesko", "Vesko could not reach its account service. Try again in a moment.") },
};
static_assert(rows.size() == AuthFailure::unavailable + 1);

constexpr auto serverCodes = std::to_array<std::pair<std::string_view, AuthFailure::Kind>>({
    { "invalid_email", AuthFailure::invalidEmail },
    { "invalid_code", AuthFailure::invalidCode },
    { "code_expired", AuthFailure::codeExpired },
    { "too_many_attempts", AuthFailure::tooManyAttempts },
    { "rate_limited", AuthFailure::rateLimited },
    { "google_unconfigured", AuthFailure::providerUnconfigured },
    { "email_unavailable", AuthFailure::providerUnconfigured },
    { "unauthorized", AuthFailure::unauthorized },
});

AuthFailure::Kind kindOf(std::optional<std::string_view> serverCode, int status)
{
    using Code = decltype(serverCodes)::value_type;
    const auto* const known = std::ranges::find(serverCodes, serverCode, &Code::first);
    if (known != serverCodes.end())
        return known->second;
    return status == 401 ? AuthFailure::unauthorized
        : status == 429  ? AuthFailure::rateLimited
                         : AuthFailure::unavailable;
}

} // namespace

AuthFailure::AuthFailure(std::optional<std::string_view> serverCode, int status)
    : m_kind(kindOf(serverCode, status))
{
}

const char* AuthFailure::name() const
{
    return rows[m_kind].name;
}

const char* AuthFailure::message() const
{
    return rows[m_kind].message;
}

} // namespace vesko
