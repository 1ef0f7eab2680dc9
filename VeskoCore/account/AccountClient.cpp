#include "VeskoCore/account/AccountClient.h"

#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/account/QueryItems.h"
#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/CurlTransport.h"

#include <utility>

namespace vesko {

namespace {

constexpr double idleTimeout = 20; // seconds
constexpr double wholeTimeout = 60; // seconds
constexpr std::size_t answerLimit = std::size_t{ 1 } << 20; // bytes

// The bodies that are sent.
struct EmailStart {
    std::string email;
};
struct EmailVerification {
    std::string code;
    std::string email;
};
struct GoogleIdentity {
    std::string idToken;
    std::string nonce;
};

// The bodies that are received, beside SignInReply.
struct AccountReply {
    VeskoAccount account;
};
struct Refusal {
    std::optional<std::string> error;
};
struct GoogleTokens {
    std::string idToken;
};

} // namespace

template <>
inline constexpr std::tuple jsonFields<EmailStart>{ JsonField{ "email", &EmailStart::email } };
template <>
inline constexpr std::tuple jsonFields<EmailVerification>{
    JsonField{ "code", &EmailVerification::code },
    JsonField{ "email", &EmailVerification::email },
};
template <>
inline constexpr std::tuple jsonFields<GoogleIdentity>{
    JsonField{ "idToken", &GoogleIdentity::idToken },
    JsonField{ "nonce", &GoogleIdentity::nonce },
};
template <>
inline constexpr std::tuple jsonFields<AccountReply>{
    JsonField{ "account", &AccountReply::account },
};
template <>
inline constexpr std::tuple jsonFields<Refusal>{ JsonField{ "error", &Refusal::error } };
template <>
inline constexpr std::tuple jsonFields<GoogleTokens>{
    JsonField{ "id_token", &GoogleTokens::idToken },
};

namespace {

template <class Record>
Record decoded(std::string body)
{
    return JsonDocument(std::move(body), JsonOrigin::service).as<Record>();
}

std::optional<std::string> serverCode(std::string body)
{
    try {
        return decoded<Refusal>(std::move(body)).error;
    } catch (const JsonError&) {
        return std::nullopt; // then the status has to say it
    }
}

} // namespace

AccountClient::AccountClient(
    std::optional<std::string> baseURL, GoogleEndpoints google, HttpTransport transport)
    : m_baseURL(std::move(baseURL))
    , m_google(std::move(google))
    , m_transport(transport ? std::move(transport) : curlTransport(answerLimit))
{
    if (m_baseURL && !m_baseURL->ends_with('/'))
        *m_baseURL += '/';
}

void AccountClient::startEmail(const std::string& email, std::stop_token stop) const
{
    post("v1/auth/email/start", EmailStart{ .email = email }, std::move(stop));
}

SignInReply AccountClient::verifyEmail(
    const std::string& email, const std::string& code, std::stop_token stop) const
{
    return decoded<SignInReply>(post("v1/auth/email/verify",
        EmailVerification{ .code = code, .email = email }, std::move(stop)));
}

SignInReply AccountClient::signInWithGoogle(
    const std::string& idToken, const std::string& nonce, std::stop_token stop) const
{
    return decoded<SignInReply>(post(
        "v1/auth/google", GoogleIdentity{ .idToken = idToken, .nonce = nonce }, std::move(stop)));
}

VeskoAccount AccountClient::account(std::string_view token, std::stop_token stop) const
{
    return decoded<AccountReply>(call("GET", "v1/account", token, std::nullopt, std::move(stop)))
        .account;
}

void AccountClient::signOut(std::string_view token, std::stop_token stop) const
{
    call("POST", "v1/auth/logout", token, std::nullopt, std::move(stop));
}

void AccountClient::deleteAccount(std::string_view token, std::stop_token stop) const
{
    call("DELETE", "v1/account", token, std::nullopt, std::move(stop));
}

std::string AccountClient::exchangeGoogle(const std::string& code, const std::string& redirectURI,
    const std::string& clientID, const std::string& verifier, std::stop_token stop) const
{
    const HttpRequest request{ .url = m_google.token,
        .method = "POST",
        .headers = { { "Content-Type", "application/x-www-form-urlencoded" } },
        .body = encodedQuery({
            { "code", code },
            { "client_id", clientID },
            { "code_verifier", verifier },
            { "redirect_uri", redirectURI },
            { "grant_type", "authorization_code" },
        }),
        .timeout = idleTimeout,
        .resourceTimeout = wholeTimeout };
    HTTPResult result = exchange(request, std::move(stop));
    if (result.status != 200)
        throw AuthFailure(AuthFailure::unavailable);
    try {
        return decoded<GoogleTokens>(std::move(result.data)).idToken;
    } catch (const JsonError&) {
        throw AuthFailure(AuthFailure::unavailable);
    }
}

template <class Body>
std::string AccountClient::post(
    const std::string& path, const Body& body, std::stop_token stop) const
{
    return call("POST", path, std::nullopt, JsonWriter::write(body, JsonWriter::Form::compact),
        std::move(stop));
}

std::string AccountClient::call(const std::string& method, const std::string& path,
    std::optional<std::string_view> token, std::optional<std::string> body,
    std::stop_token stop) const
{
    if (!m_baseURL)
        throw AuthFailure(AuthFailure::providerUnconfigured);
    HttpRequest request{ .url = *m_baseURL + path,
        .method = method,
        .headers = {},
        .body = std::move(body),
        .timeout = idleTimeout,
        .resourceTimeout = wholeTimeout };
    if (token)
        request.bearer = *token;
    if (request.body)
        request.headers.emplace_back("Content-Type", "application/json");
    HTTPResult result = exchange(request, std::move(stop));
    if (result.status < 200 || result.status > 299)
        throw AuthFailure(serverCode(std::move(result.data)), result.status);
    return std::move(result.data);
}

// An answer that is not HTTP counts as one of a service that is not there.
HTTPResult AccountClient::exchange(const HttpRequest& request, std::stop_token stop) const
{
    try {
        return m_transport(request, std::move(stop));
    } catch (const VeskoError&) {
        return { .data = {}, .status = 503, .requestID = std::nullopt };
    }
}

} // namespace vesko
