#pragma once

#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/CurlTransport.h"
#include "tests/fakes/LoopbackServer.h"

#include <gtest/gtest.h>

// Exchanges between the transport over libcurl and a server on loopback.
namespace vesko {

inline HttpRequest get(const LoopbackServer& server, const std::string& path = "/thing")
{
    return { .url = server.url() + path, .method = "GET", .headers = {}, .body = std::nullopt };
}

inline HttpRequest post(const LoopbackServer& server, std::string body = R"({"a":1})")
{
    return { .url = server.url() + "/thing",
        .method = "POST",
        .headers = { { "Content-Type", "application/json" } },
        .bearer = "secret",
        .body = std::move(body) };
}

inline std::string megabytes(std::size_t count)
{
    return std::string(count * 1'000'000, 'x');
}

inline HTTPResult exchange(const HttpRequest& request)
{
    return curlTransport()(request, {});
}

// What the exchange threw; nothing if it threw nothing, or something that is no URLError.
inline std::optional<URLError::Kind> failure(const HttpRequest& request,
    const HttpTransport& transport = curlTransport(), const std::stop_token& stop = {})
{
    try {
        transport(request, stop);
        ADD_FAILURE() << "the exchange succeeded";
    } catch (const URLError& error) {
        return error.kind();
    } catch (const VeskoError& error) {
        ADD_FAILURE() << error.what();
    }
    return std::nullopt;
}

} // namespace vesko
