#include "VeskoCore/speech/PlusGateway.h"

#include "VeskoCore/base/JsonError.h"
#include "tests/core/speech/FakeNetwork.h"
#include "tests/core/speech/OpenRouterCalls.h"
#include "tests/core/speech/PlusCalls.h"

#include <gtest/gtest.h>

#include <limits>

namespace vesko {
namespace {

using Mode = PlusGateway::TextMode;

constexpr const char* plusRoot = "https://plus.example";
constexpr const char* plusWords = R"({"text":"hello","state":"done"})";

struct PlusNetwork : FakeNetwork {
    PlusNetwork() { answer.data = plusWords; }
    PlusGateway gateway() { return PlusGateway(plusRoot, transport()); }
};

TEST(PlusGatewaySend, WithABodyItPosts)
{
    PlusNetwork network;
    EXPECT_EQ(network.gateway().send("v1/plus/text", "token", "{}", {}), plusWords);
    const HttpRequest& request = network.requests.at(0);
    EXPECT_EQ(request.url, "https://plus.example/v1/plus/text");
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.body, "{}");
    EXPECT_EQ(request.timeout, 60);
    EXPECT_EQ(request.resourceTimeout, 120);
    EXPECT_EQ(header(request, "Authorization"), "Bearer token");
    EXPECT_EQ(header(request, "Content-Type"), "application/json");
    EXPECT_EQ(request.headers.size(), 1U);
}

TEST(PlusGatewaySend, WithoutABodyItGetsAndNamesNoContentType)
{
    PlusNetwork network;
    network.gateway().send("v1/plus/allowance", "token", std::nullopt, {});
    const HttpRequest& request = network.requests.at(0);
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.body, std::nullopt);
    EXPECT_EQ(header(request, "Authorization"), "Bearer token");
    EXPECT_EQ(request.headers.size(), 0U);
}

TEST(PlusGatewaySend, ThePathStandsBelowTheRoot)
{
    const struct {
        const char* root;
        const char* url;
    } rows[] = {
        { "https://plus.example", "https://plus.example/v1/x" },
        { "https://plus.example/", "https://plus.example/v1/x" },
        { "https://plus.example:8443/below", "https://plus.example:8443/below/v1/x" },
        { "https://plus.example/below/", "https://plus.example/below/v1/x" },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        PlusGateway(row.root, network.transport()).send("v1/x", "token", std::nullopt, {});
        EXPECT_EQ(network.requests.at(0).url, row.url);
    }
}

TEST(PlusGatewaySend, TheTokenGoesOutAsItStands)
{
    for (const char* token : { "", " token ", "to ken" }) {
        PlusNetwork network;
        network.gateway().send("path", token, std::nullopt, {});
        EXPECT_EQ(header(network.requests.at(0), "Authorization"), std::string("Bearer ") + token);
    }
}

TEST(PlusGatewaySend, OnlyAStatusFrom200To299IsASuccess)
{
    for (const int status : { 200, 201, 204, 299 }) {
        PlusNetwork network;
        network.answer = { .data = R"({"error":"paused"})", .status = status, .requestID = {} };
        EXPECT_EQ(network.gateway().send("path", "token", "{}", {}), network.answer.data) << status;
    }
    for (const int status : { 199, 300, 302, 400, 404, 429 }) {
        PlusNetwork network;
        network.answer.status = status;
        EXPECT_EQ(plusFailure([&] { network.gateway().send("path", "token", "{}", {}); }),
            PlusFailure::invalidResponse)
            << status;
        EXPECT_EQ(network.requests.size(), 1U) << status;
    }
}

TEST(PlusGatewaySend, TheCodeIsATextUnderErrorInAnObject)
{
    const struct {
        const char* what;
        std::string data;
        bool known;
    } rows[] = {
        { "as it should be", R"({"error":"paused"})", true },
        { "among others", R"({"detail":{"error":1},"error":"paused","x":[]})", true },
        { "with escapes", R"({"error":"pa\u0075sed"})", true },
        { "no JSON", "<html>paused</html>", false },
        { "empty", "", false },
        { "cut", R"({"error":"paused")", false },
        { "a list", R"(["error","paused"])", false },
        { "a bare text", R"("paused")", false },
        { "a number", R"({"error":402})", false },
        { "an object", R"({"error":{"code":"paused"}})", false },
        { "a null", R"({"error":null})", false },
        { "another case", R"({"Error":"paused"})", false },
        { "another key", R"({"code":"paused"})", false },
        { "invalid UTF-8", "{\"error\":\"paused\",\"x\":\"\xff\"}", false },
        { "nested without end", R"({"error":"paused","x":)" + std::string(1'000'000, '['), false },
    };
    for (const auto& row : rows) {
        for (const auto& [status, fallback] : { std::pair(400, PlusFailure::invalidResponse),
                 std::pair(404, PlusFailure::invalidResponse),
                 std::pair(401, PlusFailure::signInRequired),
                 std::pair(503, PlusFailure::serviceBusy) }) {
            PlusNetwork network;
            network.answer = { .data = row.data, .status = status, .requestID = std::nullopt };
            EXPECT_EQ(plusFailure([&] { network.gateway().send("path", "token", "{}", {}); }),
                row.known ? PlusFailure::paused : fallback)
                << row.what << " with " << status;
        }
    }
}

TEST(PlusGatewaySend, TheTransportGetsTheStopTokenAndItsErrorsPassUnchanged)
{
    std::stop_source source;
    std::stop_token given;
    const PlusGateway gateway(
        plusRoot, [&](const HttpRequest&, std::stop_token stop) -> HTTPResult {
            given = std::move(stop);
            throw URLError(URLError::networkConnectionLost);
        });
    try {
        PlusSpeechCall().on(gateway, source.get_token());
        ADD_FAILURE() << "no error";
    } catch (const URLError& error) {
        EXPECT_EQ(error.kind(), URLError::networkConnectionLost);
    }
    EXPECT_EQ(given, source.get_token());
}

TEST(PlusGatewayTranscribe, SendsTheAudioInOneDocument)
{
    PlusNetwork network;
    PlusSpeechCall{ .language = "de-DE" }.on(network.gateway());
    EXPECT_EQ(network.requests.at(0).url, "https://plus.example/v1/plus/transcribe");
    EXPECT_EQ(network.onlyBody(),
        R"({"audio":"dm9pY2U=","format":"m4a","language":"de-DE","model":"vendor\/speech",)"
        R"("requestId":"req-1","seconds":4})");
}

TEST(PlusGatewayTranscribe, SecondsAreWholeAndAtLeastOne)
{
    const struct {
        double seconds;
        std::int64_t sent;
    } rows[] = { { 0, 1 }, { 0.2, 1 }, { 1, 1 }, { 1.0001, 2 }, { 3.1, 4 }, { 4, 4 }, { 300, 300 },
        { -5, 1 } };
    for (const auto& row : rows) {
        PlusNetwork network;
        PlusSpeechCall{ .seconds = row.seconds }.on(network.gateway());
        EXPECT_EQ(SentBody(network.onlyBody()).at("/seconds").get_int64().value(), row.sent)
            << row.seconds;
    }
}

TEST(PlusGatewayTranscribe, TheLanguageGoesOutWholeUnlessItIsToBeFound)
{
    const struct {
        const char* what;
        std::optional<std::string> language;
        bool sent;
    } rows[] = {
        { "absent", std::nullopt, false },
        { "empty", "", false },
        { "automatic", "auto", false },
        { "with a region", "de-DE", true },
        { "of two letters", "de", true },
        { "automatic in another case", "Auto", true },
        { "automatic with a blank", "auto ", true },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        PlusSpeechCall{ .language = row.language }.on(network.gateway());
        const SentBody body(network.onlyBody());
        EXPECT_EQ(body.has("language"), row.sent) << row.what;
        EXPECT_EQ(body.size(), row.sent ? 6U : 5U) << row.what;
        if (row.sent)
            EXPECT_EQ(body.text("/language"), *row.language) << row.what;
    }
}

TEST(PlusGatewayTranscribe, TextsTravelAsGiven)
{
    const std::string odd = " a\"b\\c/d\n\x01 \u00e9 ";
    PlusNetwork network;
    PlusSpeechCall{ .format = odd, .model = odd, .requestID = odd }.on(network.gateway());
    const SentBody body(network.onlyBody());
    for (const char* pointer : { "/format", "/model", "/requestId" })
        EXPECT_EQ(body.text(pointer), odd);
    EXPECT_EQ(network.onlyBody().find('\n'), std::string::npos);
}

TEST(PlusGatewayTranscribe, WhatJsonCannotHoldIsNotSent)
{
    PlusNetwork network;
    const auto gateway = network.gateway();
    EXPECT_THROW(PlusSpeechCall{ .model = "\xff" }.on(gateway), JsonError);
    EXPECT_THROW(PlusSpeechCall{ .seconds = std::numeric_limits<double>::infinity() }.on(gateway),
        JsonError);
    EXPECT_THROW(PlusSpeechCall{ .seconds = std::numeric_limits<double>::quiet_NaN() }.on(gateway),
        JsonError);
    EXPECT_TRUE(network.requests.empty());
}

TEST(PlusGatewayTranscribe, NoAudioOrTooMuchIsNotSent)
{
    PlusNetwork network;
    const auto gateway = network.gateway();
    EXPECT_EQ(
        failure([&] { PlusSpeechCall{ .audio = "" }.on(gateway); }), VeskoError::emptyTranscript);
    EXPECT_EQ(
        plusFailure([&] { PlusSpeechCall{ .audio = std::string(26'214'401, 'x') }.on(gateway); }),
        PlusFailure::audioTooLarge);
    EXPECT_TRUE(network.requests.empty());
    PlusSpeechCall{ .audio = std::string(26'214'400, 'x') }.on(gateway);
    EXPECT_EQ(SentBody(network.onlyBody()).text("/audio").size(), 34'952'536U);
}

TEST(PlusGatewayTranscribe, AnAnswerBecomesAResult)
{
    const struct {
        const char* what;
        std::string data;
        std::string text;
        std::optional<double> cost;
    } rows[] = {
        { "without cost", plusWords, "hello", std::nullopt },
        { "with cost", R"({"state":"done","costUsd":0.0125,"text":"hello"})", "hello", 0.0125 },
        { "a whole number as cost", R"({"state":"done","costUsd":2,"text":"hello"})", "hello",
            2.0 },
        { "a cost of null", R"({"state":"done","costUsd":null,"text":"hello"})", "hello",
            std::nullopt },
        { "a state of any kind", R"({"state":"","text":"hello","x":{}})", "hello", std::nullopt },
        { "white space around", R"({"state":"s","text":" \r\n\u00a0two  words\t\n"})", "two  words",
            std::nullopt },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        network.answer = { .data = row.data, .status = 200, .requestID = "of a header" };
        EXPECT_EQ(PlusSpeechCall().on(network.gateway()), resultOf(row.text, row.cost, "req-1"))
            << row.what;
    }
}

TEST(PlusGatewayTranscribe, AnAnswerWithoutWordsIsAnEmptyTranscript)
{
    for (const char* data :
        { R"({"text":"","state":"s"})", R"({"text":" \r\n\u2028","state":"s","costUsd":1})" }) {
        PlusNetwork network;
        network.answer.data = data;
        EXPECT_EQ(
            failure([&] { PlusSpeechCall().on(network.gateway()); }), VeskoError::emptyTranscript)
            << data;
    }
}

TEST(PlusGatewayTranscribe, AnUnreadableAnswerIsAnInvalidResponse)
{
    const struct {
        const char* what;
        std::string data;
    } rows[] = {
        { "empty", "" },
        { "no JSON", "<html>busy</html>" },
        { "cut", R"({"text":"hello","state":"do)" },
        { "no object", R"(["hello"])" },
        { "no state", R"({"text":"hello"})" },
        { "no text", R"({"state":"done"})" },
        { "state as a number", R"({"text":"hello","state":1})" },
        { "state of null", R"({"text":"hello","state":null})" },
        { "text of null", R"({"text":null,"state":"done"})" },
        { "text as a list", R"({"text":["hello"],"state":"done"})" },
        { "cost as a text", R"({"text":"hello","state":"done","costUsd":"1"})" },
        { "cost as a boolean", R"({"text":"hello","state":"done","costUsd":true})" },
        { "cost beyond all numbers", R"({"text":"hello","state":"done","costUsd":1e999})" },
        { "no words and no state", R"({"text":""})" },
        { "invalid UTF-8", "{\"text\":\"hel\xff\",\"state\":\"done\"}" },
        { "half a surrogate pair", R"({"text":"\ud83d","state":"done"})" },
        { "something after it", std::string(plusWords) + "{}" },
        { "a hundred thousand levels",
            R"({"text":"hello","state":"s","x":)" + std::string(100'000, '[')
                + std::string(100'000, ']') + "}" },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        network.answer.data = row.data;
        EXPECT_EQ(plusFailure([&] { PlusSpeechCall().on(network.gateway()); }),
            PlusFailure::invalidResponse)
            << row.what;
        EXPECT_EQ(plusFailure([&] { PlusTextCall().on(network.gateway()); }),
            PlusFailure::invalidResponse)
            << row.what;
    }
}

TEST(PlusGatewayTransform, SendsTheTextOfItsMode)
{
    const struct {
        const char* what;
        Mode mode;
        std::optional<std::string> target;
        const char* body;
    } rows[] = {
        { "cleanup", Mode::cleanup, std::nullopt,
            R"({"mode":"cleanup","model":"vendor\/chat","requestId":"req-2","text":"um hello"})" },
        { "cleanup with no translation chosen", Mode::cleanup, "off",
            R"({"mode":"cleanup","model":"vendor\/chat","requestId":"req-2","text":"um hello"})" },
        { "cleanup with a target", Mode::cleanup, "de",
            R"({"mode":"cleanup","model":"vendor\/chat","requestId":"req-2","text":"um hello"})" },
        { "translation", Mode::translate, "de-DE",
            R"({"mode":"translate","model":"vendor\/chat","requestId":"req-2","target":"de-DE",)"
            R"("text":"um Hello"})" },
        { "both", Mode::both, "de",
            R"({"mode":"both","model":"vendor\/chat","requestId":"req-2","target":"de",)"
            R"("text":"um Hello"})" },
        { "an empty target", Mode::translate, "",
            R"({"mode":"translate","model":"vendor\/chat","requestId":"req-2","target":"",)"
            R"("text":"um Hello"})" },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        PlusTextCall{ .mode = row.mode, .target = row.target }.on(network.gateway());
        EXPECT_EQ(network.requests.at(0).url, "https://plus.example/v1/plus/text") << row.what;
        EXPECT_EQ(network.onlyBody(), row.body) << row.what;
    }
}

TEST(PlusGatewayTransform, WithoutALanguageToTranslateIntoNothingIsSent)
{
    for (const Mode mode : { Mode::translate, Mode::both }) {
        for (const std::optional<std::string>& target :
            { std::optional<std::string>(), std::optional<std::string>("off") }) {
            PlusNetwork network;
            EXPECT_EQ(plusFailure([&] {
                PlusTextCall{ .mode = mode, .target = target }.on(network.gateway());
            }),
                PlusFailure::invalidResponse);
            EXPECT_TRUE(network.requests.empty());
        }
    }
}

TEST(PlusGatewayTransform, OnlyTextAndCostChange)
{
    const struct {
        std::optional<double> before;
        const char* costUsd;
        std::optional<double> after;
    } rows[] = {
        { 0.25, "0.5", 0.75 },
        { 0.25, "null", std::nullopt },
        { std::nullopt, "0.5", std::nullopt },
        { std::nullopt, "null", std::nullopt },
        { 0, "0", 0 },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        network.answer.data
            = std::string(R"({"text":" Hello. ","state":"done","costUsd":)") + row.costUsd + "}";
        PlusTextCall call;
        call.of.cost = row.before;
        TranscriptResult expected = call.of;
        expected.text = "Hello.";
        expected.cost = row.after;
        EXPECT_EQ(call.on(network.gateway()), expected);
    }
}

TEST(PlusGatewayTransform, ItsFailuresAreThrown)
{
    PlusNetwork network;
    network.answer = { .data = R"({"error":"provider_refused"})", .status = 422, .requestID = {} };
    EXPECT_EQ(plusFailure([&] { PlusTextCall().on(network.gateway()); }), PlusFailure::refused);
    network.answer = { .data = R"({"text":" ","state":"done"})", .status = 200, .requestID = {} };
    EXPECT_EQ(failure([&] { PlusTextCall().on(network.gateway()); }), VeskoError::emptyTranscript);
}

TEST(PlusGatewayAllowance, IsReadFromItsObject)
{
    PlusNetwork network;
    network.answer.data = R"({"allowance":{"period":"2026-11","allowanceUsd":5,"usedUsd":1.25,)"
                          R"("reservedUsd":0.5,"remainingUsd":3.25,"more":true},"x":1})";
    const PlusAllowance expected{ .period = "2026-11",
        .allowanceUsd = 5,
        .usedUsd = 1.25,
        .reservedUsd = 0.5,
        .remainingUsd = 3.25 };
    EXPECT_EQ(network.gateway().allowance("token", {}), expected);
    EXPECT_EQ(network.requests.at(0).url, "https://plus.example/v1/plus/allowance");
    EXPECT_EQ(network.requests.at(0).method, "GET");
}

TEST(PlusGatewayAllowance, AnUnreadableOneIsAnInvalidResponse)
{
    const std::string whole = R"({"allowance":{"period":"2026-11","allowanceUsd":5,"usedUsd":1.25,)"
                              R"("reservedUsd":0.5,"remainingUsd":3.25}})";
    const struct {
        const char* what;
        std::string part;
        std::string by;
    } rows[] = {
        { "no JSON", "{", "" },
        { "another key", "\"allowance\"", "\"allowances\"" },
        { "no object", whole, R"({"allowance":[]})" },
        { "a period that is no text", "\"2026-11\"", "202611" },
        { "no period", R"("period":"2026-11",)", "" },
        { "no allowance", R"("allowanceUsd":5,)", "" },
        { "nothing used", R"("usedUsd":1.25,)", "" },
        { "nothing reserved", R"("reservedUsd":0.5,)", "" },
        { "nothing remaining", R"(,"remainingUsd":3.25)", "" },
        { "dollars as a text", "1.25", "\"1.25\"" },
        { "dollars of null", "1.25", "null" },
    };
    for (const auto& row : rows) {
        PlusNetwork network;
        network.answer.data = whole;
        network.answer.data.replace(whole.find(row.part), row.part.size(), row.by);
        EXPECT_EQ(plusFailure([&] { network.gateway().allowance("token", {}); }),
            PlusFailure::invalidResponse)
            << row.what;
    }
}

} // namespace
} // namespace vesko
