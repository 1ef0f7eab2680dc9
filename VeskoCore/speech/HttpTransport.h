#pragma once

#include "VeskoCore/base/Secret.h"

#include <exception>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vesko {

// One HTTP exchange as it is to be sent.
struct HttpRequest {
    std::string url;
    std::string method; // "GET", "POST" or "DELETE"
    std::vector<std::pair<std::string, std::string>> headers;
    std::optional<Secret> bearer = std::nullopt; // goes out as the header "Authorization"
    std::optional<std::string> body;
    double timeout = 75; // seconds without any progress
    double resourceTimeout = 90; // seconds for the whole exchange
    bool pastProxy = false; // what stays on this machine goes through no other
};

// The raw answer of one exchange.
struct HTTPResult {
    std::string data; // the body, whole
    int status = 0;
    std::optional<std::string> requestID; // the header "X-Generation-Id"

    bool operator==(const HTTPResult&) const = default;
};

// The exchange could not be made. It holds no text of the system or the server.
class URLError : public std::exception {
public:
    enum Kind {
        notConnectedToInternet,
        networkConnectionLost,
        cannotFindHost,
        cannotConnectToHost,
        timedOut,
        cancelled,
        other, // TLS, a header that cannot be sent, an answer too large to hold
    };
    explicit URLError(Kind kind)
        : m_kind(kind)
    {
    }
    Kind kind() const { return m_kind; }
    const char* what() const noexcept override { return "URLError"; }

private:
    Kind m_kind;
};

// The address of a service's path, which begins without a slash, below the service's root.
inline std::string serviceURL(std::string root, std::string_view path)
{
    if (!root.ends_with('/'))
        root += '/';
    return root.append(path);
}

// Performs one exchange, blocking; throws URLError, or VeskoError::invalidResponse for an answer
// that is not HTTP. A stop request ends it within moments, as cancelled.
using HttpTransport = std::function<HTTPResult(const HttpRequest&, std::stop_token)>;

} // namespace vesko
