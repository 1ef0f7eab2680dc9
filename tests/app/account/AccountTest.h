#pragma once

#include "VeskoApp/account/AccountStore.h"
#include "VeskoApp/account/KeychainSessionVault.h"
#include "VeskoApp/async/Eventual.h"
#include "VeskoCore/base/JsonWriter.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeSecretStore.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/LoopbackServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace vesko {

// Answers for Google as a test has set it, when the test lets it.
class FakeIdentityProviders final : public IdentityProviders {
public:
    std::optional<AuthFailure> refusal;
    bool waits = false; // until answer() or cancel()
    std::string clientID, nonce, verifier; // as they were last given
    int asked = 0;

    Task<GoogleCode> googleAuthorizationCode(
        std::string client, std::string once, std::string proof) override
    {
        clientID = std::move(client);
        nonce = std::move(once);
        verifier = std::move(proof);
        co_await passed();
        co_return GoogleCode{ .code = "google's code", .redirectURI = "scheme:/oauth2redirect" };
    }
    void cancel() override
    {
        refusal = AuthFailure::cancelled;
        answer();
    }
    void answer() { m_answer.set({}); }

private:
    Task<> passed()
    {
        ++asked;
        m_answer = {};
        const auto answer = m_answer;
        if (!waits)
            answer.set({});
        co_await answer;
        if (refusal)
            throw AuthFailure(*refusal);
    }

    Eventual<std::monostate> m_answer;
};

// A store whose service is a server on loopback, on a machine that works.
class AccountTest : public testing::Test {
protected:
    static constexpr const char* clientID = "123-abc.apps.googleusercontent.com";
    static constexpr const char* offline
        = "You are offline. Your notes stay on this Mac. Reconnect to sign in.";
    static constexpr const char* unavailable
        = "Vesko could not reach its account service. Try again in a moment.";
    static constexpr const char* unconfigured
        = "This sign-in method is not available yet. Choose another one.";

    AccountTest()
    {
        deployment.baseURL = server.url();
        deployment.googleClientID = clientID;
        deployment.google.token = server.url() + "/token";
    }

    // The store of this run of the program.
    AccountStore& open()
    {
        store = std::make_unique<AccountStore>(
            deployment, vault, identities, settings, std::move(transport));
        store->onUsage = [this](UsageEvent event) { events.push_back(event); };
        return *store;
    }
    // No exchange reaches the service.
    void goOffline()
    {
        transport = [](const HttpRequest&, const std::stop_token&) -> HTTPResult {
            throw URLError(URLError::notConnectedToInternet);
        };
    }
    void answer(int status, const std::string& body)
    {
        server.reply(LoopbackServer::answer(status, body));
    }
    void refuse(int status, const std::string& code)
    {
        answer(status, R"({"error":")" + code + R"("})");
    }
    static VeskoAccount account(const std::string& email = "user@example.com")
    {
        return { .id = *Uuid::parse("0123ABCD-4567-89EF-ABCD-EF0123456789"),
            .email = email,
            .providers = { AuthProvider::email },
            .createdAt = *Date::parse("2026-11-21T10:52:00Z") };
    }
    static std::string text(const VeskoAccount& account)
    {
        return JsonWriter::write(account, JsonWriter::Form::pretty);
    }
    static std::string accountBody(const VeskoAccount& account)
    {
        return R"({"account":)" + text(account) + "}";
    }
    static std::string signInBody(const std::string& token = "fresh")
    {
        return R"({"session":{"token":")" + token
            + R"(","expiresAt":"2026-12-21T10:52:00.5Z"},"account":)" + text(account()) + "}";
    }
    // As an earlier run left it.
    void putSession(const std::string& token = "kept", const VeskoAccount& of = account())
    {
        machineSecrets.put("vesko-session", token);
        putAccount(text(of));
    }
    void putAccount(const std::string& text)
    {
        const auto* const bytes = reinterpret_cast<const std::byte*>(text.data());
        settings.values.insert_or_assign(
            "veskoAccount", std::vector<std::byte>(bytes, bytes + text.size()));
    }
    std::string storedAccount() const
    {
        const auto bytes = settings.get<std::vector<std::byte>>("veskoAccount");
        return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size())
                     : "";
    }
    std::optional<std::string> storedToken() const
    {
        const auto items = machineSecrets.items();
        const auto item = items.find("vesko-session");
        return item == items.end() ? std::nullopt : std::optional(item->second);
    }
    std::string message() const { return store->message().toStdString(); }
    void expectNobody() const
    {
        EXPECT_TRUE(store->signedOut());
        EXPECT_EQ(storedToken(), std::nullopt);
        EXPECT_FALSE(settings.values.contains("veskoAccount"));
        EXPECT_EQ(store->pendingEmail(), std::nullopt);
    }

    LoopbackServer server;
    AccountDeployment deployment;
    HttpTransport transport; // libcurl's unless set before open
    FakeSecretStore machineSecrets;
    FakeSettingsStore settings;
    Keychain keychain{ machineSecrets };
    KeychainSessionVault vault{ keychain };
    FakeIdentityProviders identities;
    std::vector<UsageEvent> events;
    std::unique_ptr<AccountStore> store; // ends before the machine
};

} // namespace vesko
