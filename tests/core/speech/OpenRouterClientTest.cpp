#include "VeskoCore/speech/OpenRouterClient.h"

#include "tests/core/speech/FakeNetwork.h"
#include "tests/core/speech/OpenRouterCalls.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using Then = LoopbackServer::Then;

constexpr const char* base = "https://provider.example/api/v1/";
constexpr const char* words = R"({"text":"hello"})";

struct Network : FakeNetwork {
    Network() { answer.data = words; }
    OpenRouterClient client() { return OpenRouterClient(base, transport()); }
};

// The arguments of a speech call, good ones unless a test says otherwise.
struct Call {
    std::string audio = "audio";
    std::string format = "m4a";
    std::string model{ OpenRouterClient::defaultSTTModel };
    std::optional<std::string> language = std::nullopt;
    std::string key = "test-key";
    bool allowProcessing = true;

    TranscriptResult on(const OpenRouterClient& client) const
    {
        return client.transcribe(audio, format, model, language, key, allowProcessing, {});
    }
};

TEST(OpenRouterClient, NamesItsDefaultModels)
{
    EXPECT_EQ(OpenRouterClient::defaultSTTModel, "openai/whisper-large-v3-turbo");
    EXPECT_EQ(OpenRouterClient::defaultCleanupModel, "xiaomi/mimo-v2.6-pro");
}

TEST(OpenRouterClientSend, WithABodyItPosts)
{
    Network network;
    const HTTPResult result = network.client().send("chat/completions", "key", "{}", {});

    EXPECT_EQ(result, network.answer);
    const HttpRequest& request = network.requests.at(0);
    EXPECT_EQ(request.url, "https://provider.example/api/v1/chat/completions");
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.body, "{}");
    EXPECT_EQ(request.timeout, 75);
    EXPECT_EQ(request.resourceTimeout, 90);
    EXPECT_EQ(header(request, "Content-Type"), "application/json");
    EXPECT_EQ(header(request, "X-Title"), "Vesko");
    EXPECT_EQ(header(request, "Authorization"), "Bearer key");
    EXPECT_EQ(request.headers.size(), 2U);
}

TEST(OpenRouterClientSend, ABaseWithoutAClosingSlashIsWhole)
{
    Network network;
    OpenRouterClient("https://provider.example/api/v1", network.transport())
        .send("models", std::nullopt, std::nullopt, {});
    EXPECT_EQ(network.requests.at(0).url, "https://provider.example/api/v1/models");
}

TEST(OpenRouterClientSend, WithoutABodyItGetsAndStillNamesTheContentType)
{
    Network network;
    network.client().send("models?output_modalities=all&sort=a", std::nullopt, std::nullopt, {});

    const HttpRequest& request = network.requests.at(0);
    EXPECT_EQ(request.url, "https://provider.example/api/v1/models?output_modalities=all&sort=a");
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.body, std::nullopt);
    EXPECT_EQ(header(request, "Content-Type"), "application/json");
    EXPECT_EQ(header(request, "X-Title"), "Vesko");
    EXPECT_EQ(header(request, "Authorization"), std::nullopt);
}

TEST(OpenRouterClientSend, AnEmptyBodyIsABody)
{
    Network network;
    network.client().send("path", std::nullopt, "", {});
    EXPECT_EQ(network.requests.at(0).method, "POST");
    EXPECT_EQ(network.requests.at(0).body, "");
}

TEST(OpenRouterClientSend, TheKeyIsTrimmedOrRefused)
{
    const struct {
        const char* what;
        std::string key;
        std::optional<std::string> sent;
    } rows[] = {
        { "plain", "key", "Bearer key" },
        { "with white space around", " \t\u00a0key\r\n\n ", "Bearer key" },
        { "with a blank inside", "ke y", "Bearer ke y" },
        { "empty", "", std::nullopt },
        { "only white space", " \t\r\n", std::nullopt },
        { "a line feed inside", "ke\ny", std::nullopt },
        { "a carriage return inside", "ke\ry", std::nullopt },
        { "a header smuggled in", "key\r\nX-Smuggled: yes", std::nullopt },
    };
    for (const auto& row : rows) {
        Network network;
        const VeskoError error
            = failure([&] { network.client().send("path", row.key, std::nullopt, {}); });
        if (row.sent) {
            ASSERT_EQ(network.requests.size(), 1U) << row.what;
            EXPECT_EQ(header(network.requests[0], "Authorization"), row.sent) << row.what;
        } else {
            EXPECT_EQ(error, VeskoError::missingKey) << row.what;
            EXPECT_TRUE(network.requests.empty()) << row.what;
        }
    }
}

TEST(OpenRouterClientSend, OnlyAStatusFrom200To299IsASuccess)
{
    for (const int status : { 200, 201, 204, 299 }) {
        Network network;
        network.answer.status = status;
        EXPECT_EQ(network.client().send("path", "key", "{}", {}), network.answer) << status;
    }
    for (const int status : { 0, 100, 199, 300, 301, 400, 401, 402, 403, 404, 429, 500, 503 }) {
        Network network;
        network.answer.status = status;
        EXPECT_EQ(failure([&] { network.client().send("path", "key", "{}", {}); }),
            VeskoError::http(status))
            << status;
    }
}

TEST(OpenRouterClientSend, TheTransportGetsTheStopTokenAndItsErrorsPassUnchanged)
{
    std::stop_source source;
    std::stop_token given;
    const OpenRouterClient client(
        base, [&given](const HttpRequest&, std::stop_token stop) -> HTTPResult {
            given = std::move(stop);
            throw URLError(URLError::networkConnectionLost);
        });
    try {
        client.transcribe("audio", "m4a", "model", {}, "key", true, source.get_token());
        ADD_FAILURE() << "no error";
    } catch (const URLError& error) {
        EXPECT_EQ(error.kind(), URLError::networkConnectionLost);
    }
    EXPECT_EQ(given, source.get_token());
}

using OpenRouterClientDeathTest = testing::Test;

TEST(OpenRouterClientDeathTest, AnAddressThatIsNoneStopsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Network network;
    EXPECT_DEATH(network.client().send("no path", "key", "{}", {}), "");
    EXPECT_DEATH(OpenRouterClient("", {}).send("path", "key", "{}", {}), "");
}

TEST(OpenRouterClientTranscribe, SendsTheAudioInOneDocument)
{
    Network network;
    Call{ .audio = "voice" }.on(network.client());

    const HttpRequest& request = network.requests.at(0);
    EXPECT_EQ(request.url, "https://provider.example/api/v1/audio/transcriptions");
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(header(request, "Authorization"), "Bearer test-key");
    EXPECT_EQ(request.body,
        R"({"input_audio":{"data":"dm9pY2U=","format":"m4a"},)"
        R"("model":"openai\/whisper-large-v3-turbo","response_format":"json"})");
}

TEST(OpenRouterClientTranscribe, TheAudioIsStandardBase64WithPaddingAndNoLineBreaks)
{
    const struct {
        std::string audio;
        std::string encoded;
    } rows[] = {
        { "f", "Zg==" },
        { "fo", "Zm8=" },
        { "foo", "Zm9v" },
        { "\xfb\xff\xbf", "+/+/" },
        { std::string(1, '\0'), "AA==" },
    };
    for (const auto& row : rows) {
        Network network;
        Call{ .audio = row.audio }.on(network.client());
        EXPECT_EQ(SentBody(network.onlyBody()).text("/input_audio/data"), row.encoded);
    }
    Network network;
    Call{ .audio = std::string(3000, 'f') }.on(network.client());
    std::string encoded;
    for (int group = 0; group < 1000; ++group)
        encoded += "ZmZm";
    EXPECT_EQ(SentBody(network.onlyBody()).text("/input_audio/data"), encoded);
}

TEST(OpenRouterClientTranscribe, ModelAndFormatTravelAsGiven)
{
    const std::string odd = " a\"b\\c/d\n\t\x01\x1f\x7f \u00e9 \U0001F600 ";
    Network network;
    Call{ .format = odd, .model = odd }.on(network.client());
    const SentBody body(network.onlyBody());
    EXPECT_EQ(body.text("/model"), odd);
    EXPECT_EQ(body.text("/input_audio/format"), odd);
    EXPECT_EQ(network.requests[0].body->find('\n'), std::string::npos);
}

TEST(OpenRouterClientTranscribe, TheLanguageIsItsFirstTwoCharacters)
{
    const struct {
        const char* what;
        std::optional<std::string> language;
        std::optional<std::string> sent;
    } rows[] = {
        { "absent", std::nullopt, std::nullopt },
        { "empty", "", std::nullopt },
        { "automatic", "auto", std::nullopt },
        { "automatic is matched with its case", "Auto", "Au" },
        { "automatic is matched whole", "auto ", "au" },
        { "with a region", "en-US", "en" },
        { "of two letters", "de", "de" },
        { "of three letters", "fil", "fi" },
        { "of one letter", "x", "x" },
        { "not trimmed", " en", " e" },
        { "a letter with a combining mark is one character", "e\u0301a\u0301b", "e\u0301a\u0301" },
        { "a family is one character", "\U0001F468\u200D\U0001F469\u200D\U0001F467en",
            "\U0001F468\u200D\U0001F469\u200D\U0001F467e" },
        { "quotes are escaped", "\"\"x", "\"\"" },
    };
    for (const auto& row : rows) {
        Network network;
        Call{ .language = row.language }.on(network.client());
        const SentBody body(network.onlyBody());
        EXPECT_EQ(body.has("language"), row.sent.has_value()) << row.what;
        EXPECT_EQ(body.size(), row.sent ? 4U : 3U) << row.what;
        if (row.sent && body.has("language"))
            EXPECT_EQ(body.text("/language"), *row.sent) << row.what;
    }
}

TEST(OpenRouterClientTranscribe, BadArgumentsFailInTheirOrderBeforeAnyNetworkUse)
{
    const std::string tooLarge(OpenRouterClient::audioLimit + 1, 'x');
    const struct {
        const char* what;
        Call call;
        VeskoError error;
    } rows[] = {
        { "no consent and all else bad",
            { .audio = "", .model = "", .key = "", .allowProcessing = false },
            VeskoError::cloudConsentRequired },
        { "no consent", { .allowProcessing = false }, VeskoError::cloudConsentRequired },
        { "no key and all else bad", { .audio = "", .model = "", .key = "" },
            VeskoError::missingKey },
        { "a key of white space", { .key = " \r\n\t" }, VeskoError::missingKey },
        { "a key with a line feed inside", { .key = "ke\ny" }, VeskoError::missingKey },
        { "no model and no audio", { .audio = "", .model = "" }, VeskoError::invalidModel },
        { "a model of white space", { .model = " \n\u00a0" }, VeskoError::invalidModel },
        { "a model of white space and too much audio", { .audio = tooLarge, .model = " " },
            VeskoError::invalidModel },
        { "no audio", { .audio = "" }, VeskoError::emptyTranscript },
        { "one byte too much audio", { .audio = tooLarge }, VeskoError::audioTooLarge },
    };
    for (const auto& row : rows) {
        Network network;
        EXPECT_EQ(failure([&] { row.call.on(network.client()); }), row.error) << row.what;
        EXPECT_TRUE(network.requests.empty()) << row.what;
    }
}

TEST(OpenRouterClientTranscribe, TheLargestAudioIsSent)
{
    Network network;
    Call{ .audio = std::string(OpenRouterClient::audioLimit, 'f') }.on(network.client());
    // 26,214,400 bytes leave one in the last group of three.
    const std::string encoded = SentBody(network.onlyBody()).text("/input_audio/data");
    EXPECT_EQ(encoded.size(), 34'952'536U);
    EXPECT_EQ(encoded.substr(encoded.size() - 8), "ZmZmZg==");
}

TEST(OpenRouterClientTranscribe, AnAnswerBecomesAResult)
{
    const struct {
        const char* what;
        std::string data;
        std::string text;
        std::optional<double> cost;
    } rows[] = {
        { "text alone", R"({"text":"hello"})", "hello", std::nullopt },
        { "text and cost", R"({"text":"hello","usage":{"cost":0.0125}})", "hello", 0.0125 },
        { "a whole number as cost", R"({"usage":{"cost":2},"text":"hello"})", "hello", 2.0 },
        { "a cost of nothing", R"({"text":"hello","usage":{"cost":0}})", "hello", 0.0 },
        { "usage without cost", R"({"text":"hello","usage":{"seconds":3}})", "hello",
            std::nullopt },
        { "usage of null", R"({"text":"hello","usage":null})", "hello", std::nullopt },
        { "cost of null", R"({"text":"hello","usage":{"cost":null}})", "hello", std::nullopt },
        { "unknown keys", R"({"id":[1,{"a":null}],"text":"hello","usage":{"cost":1,"x":"y"}})",
            "hello", 1.0 },
        { "numbers that no 64 bits hold",
            R"({"id":18446744073709551616,"text":"hello","n":[1e400]})", "hello", std::nullopt },
        { "white space around and inside", R"({"text":" \r\n\u00a0 two  words\t\n"})", "two  words",
            std::nullopt },
        { "escapes and other scripts",
            R"({"text":"\"\u0441\u043b\u043e\u0432\u043e\" \ud83d\ude00"})",
            "\"\u0441\u043b\u043e\u0432\u043e\" \U0001F600", std::nullopt },
        { "white space around the document", " \r\n{\"text\":\"hello\"}\n ", "hello",
            std::nullopt },
    };
    for (const auto& row : rows) {
        Network network;
        network.answer = { .data = row.data, .status = 200, .requestID = "gen-1" };
        EXPECT_EQ(Call().on(network.client()), resultOf(row.text, row.cost, "gen-1")) << row.what;
    }
}

TEST(OpenRouterClientTranscribe, WithoutAGenerationIdTheResultHasNone)
{
    Network network;
    EXPECT_EQ(Call().on(network.client()).requestID, std::nullopt);
}

TEST(OpenRouterClientTranscribe, AnAnswerWithoutWordsIsAnEmptyTranscript)
{
    for (const char* data : { R"({"text":""})", R"({"text":"  \r\n\t\u00a0\u2028 "})",
             R"({"text":"","usage":{"cost":1}})" }) {
        Network network;
        network.answer.data = data;
        EXPECT_EQ(failure([&] { Call().on(network.client()); }), VeskoError::emptyTranscript)
            << data;
    }
}

TEST(OpenRouterClientTranscribe, AnUnreadableAnswerIsAnInvalidResponse)
{
    const struct {
        const char* what;
        std::string data;
    } rows[] = {
        { "empty", "" },
        { "no JSON", "<html>busy</html>" },
        { "cut", R"({"text":"hel)" },
        { "something after the document", R"({"text":"hello"} {})" },
        { "no object", R"(["text","hello"])" },
        { "a bare string", R"("hello")" },
        { "null", "null" },
        { "no text", R"({"words":"hello"})" },
        { "text in another case", R"({"Text":"hello"})" },
        { "text deeper down", R"({"result":{"text":"hello"}})" },
        { "text of null", R"({"text":null})" },
        { "text as a number", R"({"text":1})" },
        { "text as a list", R"({"text":["hello"]})" },
        { "usage as a text", R"({"text":"hello","usage":"free"})" },
        { "usage as a list", R"({"text":"hello","usage":[]})" },
        { "cost as a text", R"({"text":"hello","usage":{"cost":"1"}})" },
        { "cost as a boolean", R"({"text":"hello","usage":{"cost":true}})" },
        { "cost beyond all numbers", R"({"text":"hello","usage":{"cost":1e999}})" },
        { "a bad cost and no words", R"({"text":"","usage":{"cost":"1"}})" },
        { "invalid UTF-8", "{\"text\":\"hel\xff\"}" },
        { "half a surrogate pair", R"({"text":"\ud83d"})" },
        { "a control character in a text", "{\"text\":\"hel\nlo\"}" },
        { "a zero byte at the end", std::string("{\"text\":\"hello\"}\0", 17) },
        { "a hundred thousand levels deep",
            R"({"text":"hello","x":)" + std::string(100'000, '[') + std::string(100'000, ']')
                + "}" },
        { "a million levels opened", std::string(1'000'000, '[') },
    };
    for (const auto& row : rows) {
        Network network;
        network.answer.data = row.data;
        EXPECT_EQ(failure([&] { Call().on(network.client()); }), VeskoError::invalidResponse)
            << row.what;
    }
}

TEST(OpenRouterClientTranscribe, AFailedStatusWinsOverTheBody)
{
    for (const int status : { 199, 300, 401, 402, 429, 500 }) {
        Network network;
        network.answer.status = status;
        EXPECT_EQ(failure([&] { Call().on(network.client()); }), VeskoError::http(status));
        EXPECT_EQ(network.requests.size(), 1U);
    }
}

// Without a transport of its own the client speaks to a real server.

TEST(OpenRouterClientOnTheWire, ASpeechCallFromBothSides)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, R"({"text":" hello \n","usage":{"cost":0.5}})",
        { { "Content-Type", "application/json" }, { "x-generation-id", "gen-7" } }));

    const TranscriptResult result
        = Call{ .audio = "voice", .language = "en-US", .key = " test-key\n" }.on(clientOf(server));

    EXPECT_EQ(result, resultOf("hello", 0.5, "gen-7"));
    const std::string body
        = R"({"input_audio":{"data":"dm9pY2U=","format":"m4a"},"language":"en",)"
          R"("model":"openai\/whisper-large-v3-turbo","response_format":"json"})";
    EXPECT_EQ(server.onlyRequest().bytes,
        "POST /api/v1/audio/transcriptions HTTP/1.1\r\nHost: 127.0.0.1:"
            + std::to_string(server.port())
            + "\r\nAccept: */*\r\nContent-Type: application/json\r\nX-Title: Vesko\r\n"
              "Authorization: Bearer test-key\r\nContent-Length: "
            + std::to_string(body.size()) + "\r\n\r\n" + body);
}

TEST(OpenRouterClientOnTheWire, ARedirectIsAFailureAndTheKeyGoesNowhereElse)
{
    LoopbackServer elsewhere;
    LoopbackServer server;
    server.reply(LoopbackServer::answer(307, words, { { "Location", elsewhere.url() + "/" } }));
    EXPECT_EQ(failure([&] { Call().on(clientOf(server)); }), VeskoError::http(307));
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(elsewhere.connections(), 0U);
}

TEST(OpenRouterClientOnTheWire, ALostAnswerIsNotAskedForAgain)
{
    LoopbackServer server;
    server.reply({ .bytes = "", .then = Then::close });
    server.reply(LoopbackServer::answer(200, words));
    try {
        Call().on(clientOf(server));
        ADD_FAILURE() << "the server was asked again";
    } catch (const URLError& error) {
        EXPECT_EQ(error.kind(), URLError::networkConnectionLost);
    }
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(OpenRouterClientOnTheWire, TheLargestAudioArrivesWhole)
{
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, words));
    EXPECT_EQ(
        Call{ .audio = std::string(OpenRouterClient::audioLimit, 'f') }.on(clientOf(server)).text,
        "hello");
    EXPECT_GT(server.onlyRequest().body.size(), 34'952'536U);
}

} // namespace
} // namespace vesko
