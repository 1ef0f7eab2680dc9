#include "VeskoCore/account/AuthSession.h"
#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace std::chrono_literals;

const std::string reply = R"({"session":{"token":"secret","expiresAt":"2026-12-21T10:52:00.250Z"},)"
                          R"("account":{"id":"0123abcd-4567-89ef-abcd-ef0123456789",)"
                          R"("email":"user@example.com","providers":["google","email"],)"
                          R"("createdAt":"2026-11-21T10:52:00Z","color":"red"}})";

SignInReply decoded(const std::string& text)
{
    return JsonDocument(text, JsonOrigin::service).as<SignInReply>();
}

std::string replaced(const std::string& what, const std::string& by)
{
    auto text = reply;
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

TEST(AccountRecords, AReplyOfTheServiceIsRead)
{
    const Date created = *Date::parse("2026-11-21T10:52:00Z");
    const Date expires{ Date::parse("2026-12-21T10:52:00Z")->time + 250ms };
    EXPECT_EQ(decoded(reply),
        (SignInReply{
            .session = { .token = "secret", .expiresAt = expires },
            .account = { .id = *Uuid::parse("0123ABCD-4567-89EF-ABCD-EF0123456789"),
                .email = "user@example.com",
                .providers = { AuthProvider::google, AuthProvider::email },
                .createdAt = created },
        }));
}

TEST(AccountRecords, DatesMayHaveAFractionOrNone)
{
    EXPECT_EQ(decoded(replaced("10:52:00.250Z", "10:52:00Z")).session.expiresAt.text(),
        "2026-12-21T10:52:00Z");
    EXPECT_EQ(decoded(replaced("10:52:00.250Z", "10:52:00.9Z")).session.expiresAt.text(),
        "2026-12-21T10:52:00Z");
}

TEST(AccountRecords, AHiddenAddressIsAbsent)
{
    EXPECT_EQ(decoded(replaced(R"("email":"user@example.com",)", "")).account.email, std::nullopt);
    EXPECT_EQ(decoded(replaced(R"("user@example.com")", "null")).account.email, std::nullopt);
}

TEST(AccountRecords, TheProvidersHaveTheseNamesInThisOrder)
{
    EXPECT_EQ(decoded(replaced(R"(["google","email"])", R"(["apple","google","email"])"))
                  .account.providers,
        (std::vector{ AuthProvider::apple, AuthProvider::google, AuthProvider::email }));
    EXPECT_EQ(
        jsonNames<AuthProvider>, (std::to_array<std::string_view>({ "apple", "google", "email" })));
    EXPECT_TRUE(decoded(replaced(R"(["google","email"])", "[]")).account.providers.empty());
}

TEST(AccountRecords, WhatIsNotTheirFormFailsTheWholeReply)
{
    const struct {
        const char* what;
        std::string text;
    } rows[] = {
        { "no JSON", "welcome" },
        { "nothing", "" },
        { "an array", "[]" },
        { "cut off", reply.substr(0, reply.size() - 1) },
        { "no session", replaced(R"("session")", R"("sitting")") },
        { "no account", replaced(R"("account")", R"("person")") },
        { "no token", replaced(R"("token")", R"("ticket")") },
        { "a token that is a number", replaced(R"("secret")", "5") },
        { "a token that is null", replaced(R"("secret")", "null") },
        { "no expiry", replaced(R"("expiresAt")", R"("expires")") },
        { "an expiry that is no date", replaced("2026-12-21T10:52:00.250Z", "in a month") },
        { "an expiry in seconds", replaced(R"("2026-12-21T10:52:00.250Z")", "1797850320") },
        { "no id", replaced(R"("id")", R"("ID")") },
        { "an id that is no UUID", replaced("0123abcd-", "0123abcd") },
        { "an address that is a list", replaced(R"("user@example.com")", "[]") },
        { "no providers", replaced(R"("providers")", R"("providing")") },
        { "an unknown provider", replaced(R"("google")", R"("facebook")") },
        { "a provider in capitals", replaced(R"("google")", R"("Google")") },
        { "no date of creation", replaced(R"("createdAt")", R"("created")") },
        { "UTF-8 that is none", replaced("secret", "\xC3(") },
        { "half a surrogate pair", replaced("secret", "\\ud800") },
    };
    for (const auto& [what, text] : rows)
        EXPECT_THROW(decoded(text), JsonError) << what;
}

TEST(AccountRecords, TheCopyOnThisMachineKeepsWholeSeconds)
{
    VeskoAccount account = decoded(reply).account;
    account.createdAt.time += 750ms;
    const auto text = JsonWriter::write(account, JsonWriter::Form::pretty);
    EXPECT_EQ(text, R"({
  "createdAt" : "2026-11-21T10:52:00Z",
  "email" : "user@example.com",
  "id" : "0123ABCD-4567-89EF-ABCD-EF0123456789",
  "providers" : [
    "google",
    "email"
  ]
})");
    account.createdAt.time -= 750ms;
    EXPECT_EQ(JsonDocument(text, JsonOrigin::service).as<VeskoAccount>(), account);
}

} // namespace
} // namespace vesko
