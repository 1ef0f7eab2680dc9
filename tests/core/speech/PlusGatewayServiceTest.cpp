// The gateway's client against a gateway that keeps its own books: the same small service that a
// developer starts by hand.

#include "VeskoCore/speech/CurlTransport.h"
#include "tests/core/speech/PlusCalls.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace vesko {
namespace {

using Mode = PlusGateway::TextMode;

class PlusGatewayService : public testing::Test {
protected:
    PlusGatewayService()
    {
        setenv("no_proxy", "127.0.0.1,localhost", 1);
        std::array<int, 2> pipe{};
        if (pipe2(pipe.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
        std::string program = VESKO_TEST_DATA "/../desktop/services/gateway.py";
        std::array<char*, 2> arguments{ program.data(), nullptr };
        const int failed = posix_spawn(
            &m_process, program.c_str(), &actions, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(pipe[1]);
        FILE* output = fdopen(pipe[0], "r");
        int port = 0;
        const bool told = failed == 0 && std::fscanf(output, "%d", &port) == 1;
        std::fclose(output);
        if (!told)
            throw std::runtime_error("gateway.py did not start");
        m_url = "http://127.0.0.1:" + std::to_string(port);
    }
    ~PlusGatewayService() override
    {
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }

    PlusGateway gateway() const { return PlusGateway(m_url); }
    void control(const std::string& settings) const
    {
        const HttpRequest request{
            .url = m_url + "/control", .method = "POST", .headers = {}, .body = settings
        };
        EXPECT_EQ(curlTransport()(request, {}).status, 200);
    }
    std::string requests() const
    {
        return curlTransport()(
            { .url = m_url + "/requests", .method = "GET", .headers = {}, .body = {} }, {})
            .data;
    }

private:
    pid_t m_process = 0;
    std::string m_url;
};

TEST_F(PlusGatewayService, SpeechBecomesTextAndTheTextIsTransformed)
{
    auto result = PlusSpeechCall{ .audio = std::string(100'000, '\xff') }.on(gateway());
    EXPECT_EQ(result.text, "hello world");
    EXPECT_EQ(result.cost, 0.25);
    EXPECT_EQ(result.requestID, "req-1");

    control(R"({"text": "Hallo Welt"})");
    PlusTextCall call{ .of = result, .mode = Mode::both, .target = "de" };
    result = call.on(gateway());
    EXPECT_EQ(result.rawText, "hello world");
    EXPECT_EQ(result.text, "Hallo Welt");
    EXPECT_EQ(result.cost, 0.5);

    const PlusAllowance expected{ .period = "2026-11",
        .allowanceUsd = 5,
        .usedUsd = 0.5,
        .reservedUsd = 0,
        .remainingUsd = 4.5 };
    EXPECT_EQ(gateway().allowance("test-token", {}), expected);
    EXPECT_NE(requests().find(R"("audioBytes": 100000)"), std::string::npos) << requests();
}

TEST_F(PlusGatewayService, TheSameWorkIsDoneOnce)
{
    PlusSpeechCall().on(gateway());
    EXPECT_EQ(plusFailure([&] { PlusSpeechCall().on(gateway()); }), PlusFailure::alreadyCompleted);
    EXPECT_EQ(gateway().allowance("test-token", {}).usedUsd, 0.25);
    PlusSpeechCall{ .requestID = "req-9" }.on(gateway());
    EXPECT_EQ(gateway().allowance("test-token", {}).usedUsd, 0.5);
}

TEST_F(PlusGatewayService, AnAllowanceComesToItsEnd)
{
    control(R"({"allowanceUsd": 0.3})");
    PlusSpeechCall().on(gateway());
    EXPECT_EQ(plusFailure([&] { PlusSpeechCall{ .requestID = "req-9" }.on(gateway()); }),
        PlusFailure::allowanceExhausted);
}

TEST_F(PlusGatewayService, AnUnknownTokenHasToSignIn)
{
    EXPECT_EQ(plusFailure([&] { PlusSpeechCall{ .token = "another" }.on(gateway()); }),
        PlusFailure::signInRequired);
    EXPECT_EQ(
        plusFailure([&] { gateway().allowance("another", {}); }), PlusFailure::signInRequired);
}

TEST_F(PlusGatewayService, EachCodeOfTheServiceIsUnderstood)
{
    const struct {
        const char* code;
        PlusFailure::Kind kind;
    } rows[] = {
        { "plus_unavailable", PlusFailure::unavailable },
        { "daily_limit", PlusFailure::dailyLimit },
        { "paused", PlusFailure::paused },
        { "service_busy", PlusFailure::serviceBusy },
        { "outcome_unknown", PlusFailure::outcomeUnknown },
        { "provider_refused", PlusFailure::refused },
        { "body_too_large", PlusFailure::audioTooLarge },
        { "a code of tomorrow", PlusFailure::invalidResponse },
    };
    for (const auto& row : rows) {
        control(std::string(R"({"error": ")") + row.code + "\"}");
        EXPECT_EQ(plusFailure([&] { PlusSpeechCall().on(gateway()); }), row.kind) << row.code;
        EXPECT_EQ(plusFailure([&] { PlusTextCall().on(gateway()); }), row.kind) << row.code;
    }
}

} // namespace
} // namespace vesko
