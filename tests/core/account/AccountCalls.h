#pragma once

#include "VeskoCore/account/AccountClient.h"
#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/base/JsonError.h"
#include "tests/fakes/LoopbackServer.h"

#include <gtest/gtest.h>

// What tests of the client share.
namespace vesko {

// A client that speaks to a real server, which is Google to it as well.
inline AccountClient clientOf(const LoopbackServer& server, HttpTransport transport = {})
{
    return AccountClient(
        server.url() + "/base", { .token = server.url() + "/token" }, std::move(transport));
}

// How the call ended: "ok", the name of an AuthFailure, "URLError" or "JsonError".
template <class Call>
std::string outcome(const Call& call)
{
    try {
        call();
        return "ok";
    } catch (const AuthFailure& failure) {
        return failure.name();
    } catch (const URLError& error) {
        return error.what();
    } catch (const JsonError&) {
        return "JsonError";
    }
}

inline const std::string accountJson
    = R"({"id":"0123ABCD-4567-89EF-ABCD-EF0123456789","email":"user@example.com",)"
      R"("providers":["email"],"createdAt":"2026-11-21T10:52:00.5Z"})";
inline const std::string signInJson
    = R"({"session":{"token":"secret","expiresAt":"2026-12-21T10:52:00Z"},"account":)" + accountJson
    + "}";

} // namespace vesko
