#include "VeskoCore/account/AuthFailure.h"

#include <gtest/gtest.h>

#include <string>

namespace vesko {
namespace {

TEST(AuthFailure, HasANameForTheLogAndASentenceForTheUser)
{
    const struct {
        AuthFailure::Kind kind;
        std::string name;
        std::string message;
    } rows[] = {
        { AuthFailure::invalidEmail, "invalidEmail", "Enter a valid email address." },
        { AuthFailure::invalidCode, "invalidCode",
            "That code is not correct. Check the latest email and try again." },
        { AuthFailure::codeExpired, "codeExpired", "This code has expired. Request a new one." },
        { AuthFailure::tooManyAttempts, "tooManyAttempts",
            "Too many attempts. Request a new code." },
        { AuthFailure::rateLimited, "rateLimited",
            "Too many requests. Wait a few minutes and try again." },
        { AuthFailure::providerUnconfigured, "providerUnconfigured",
            "This sign-in method is not available yet. Choose another one." },
        { AuthFailure::cancelled, "cancelled", "Sign-in was cancelled." },
        { AuthFailure::unauthorized, "unauthorized", "Your session has ended. Sign in again." },
        { AuthFailure::offline, "offline",
            "You are offline. Your notes stay on this Mac. Reconnect to sign in." },
        { AuthFailure::unavailable, "unavailable",
            "Vesko could not reach its account service. Try again in a moment." },
    };
    for (const auto& [kind, name, message] : rows) {
        EXPECT_EQ(AuthFailure(kind).kind(), kind);
        EXPECT_EQ(AuthFailure(kind).name(), name);
        EXPECT_EQ(AuthFailure(kind).message(), message);
        EXPECT_EQ(AuthFailure(kind).what(), message);
    }
}

TEST(AuthFailure, IsWhatTheServicesCodeSaysWhateverTheStatus)
{
    const std::pair<const char*, AuthFailure::Kind> rows[] = {
        { "invalid_email", AuthFailure::invalidEmail },
        { "invalid_code", AuthFailure::invalidCode },
        { "code_expired", AuthFailure::codeExpired },
        { "too_many_attempts", AuthFailure::tooManyAttempts },
        { "rate_limited", AuthFailure::rateLimited },
        { "google_unconfigured", AuthFailure::providerUnconfigured },
        { "email_unavailable", AuthFailure::providerUnconfigured },
        { "unauthorized", AuthFailure::unauthorized },
    };
    for (const auto& [code, kind] : rows)
        for (const int status : { 400, 401, 429, 500 })
            EXPECT_EQ(AuthFailure(code, status), AuthFailure(kind)) << code << ' ' << status;
}

TEST(AuthFailure, IsWhatTheStatusSaysWithoutACodeThatIsKnown)
{
    const std::pair<int, AuthFailure::Kind> rows[] = {
        { 401, AuthFailure::unauthorized },
        { 429, AuthFailure::rateLimited },
        { 301, AuthFailure::unavailable },
        { 400, AuthFailure::unavailable },
        { 403, AuthFailure::unavailable },
        { 500, AuthFailure::unavailable },
        { 503, AuthFailure::unavailable },
    };
    for (const auto& [status, kind] : rows) {
        EXPECT_EQ(AuthFailure(std::nullopt, status), AuthFailure(kind)) << status;
        for (const char* code : { "", "teapot", "Invalid_Code", " unauthorized", "unauthorized " })
            EXPECT_EQ(AuthFailure(code, status), AuthFailure(kind)) << code << ' ' << status;
    }
}

} // namespace
} // namespace vesko
