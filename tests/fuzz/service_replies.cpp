// Bytes stand as a service's reply: the first says which call it answers, the second with which
// status. Whatever comes, the call ends as a result that keeps its promises or as one of the
// failures that it promises.

#include "VeskoCore/account/AccountClient.h"
#include "VeskoCore/account/AuthFailure.h"
#include "VeskoCore/base/JsonError.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "VeskoCore/speech/PlusFailure.h"
#include "VeskoCore/speech/PlusGateway.h"

#include <array>
#include <cstdint>
#include <cstdlib>

using namespace vesko;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

void requireTranscript(const TranscriptResult& result)
{
    require(!result.rawText.empty() && result.rawText == trimmed(result.rawText));
}

// The transcript is there whatever the service says.
void requireKept(const TranscriptResult& result)
{
    require(result.rawText == "raw" && !result.text.empty());
}

const TranscriptResult transcript{ "raw", "raw", std::nullopt, std::nullopt, std::nullopt };

using Call = void (*)(const HttpTransport&);

constexpr std::array<Call, 11> calls{
    [](const HttpTransport& network) {
        requireTranscript(OpenRouterClient("https://a.example/", network)
                .transcribe("audio", "m4a", "model", std::nullopt, "key", true, {}));
    },
    [](const HttpTransport& network) {
        const auto models = OpenRouterClient("https://a.example/", network).models(false, {});
        require(!models.empty() && models.size() <= OpenRouterClient::mostModels);
        for (const auto& model : models)
            require(model.id.size() <= OpenRouterClient::longestModelText
                && model.name.size() <= OpenRouterClient::longestModelText);
    },
    [](const HttpTransport& network) {
        requireKept(OpenRouterClient("https://a.example/", network)
                .transform(transcript, "model", "key", true, true, "de", {}));
    },
    [](const HttpTransport& network) {
        requireTranscript(PlusGateway("https://a.example/", network)
                .transcribe("audio", "m4a", 1, "model", std::nullopt, "token", "id", {}));
    },
    [](const HttpTransport& network) {
        requireKept(PlusGateway("https://a.example/", network)
                .transform(transcript, PlusGateway::TextMode::cleanup, std::nullopt, "model",
                    "token", "id", {}));
    },
    [](const HttpTransport& network) {
        PlusGateway("https://a.example/", network).allowance("token", {});
    },
    [](const HttpTransport& network) {
        AccountClient("https://a.example/", {}, network).verifyEmail("a@b.example", "123456", {});
    },
    [](const HttpTransport& network) {
        AccountClient("https://a.example/", {}, network).account("token", {});
    },
    [](const HttpTransport& network) {
        AccountClient("https://a.example/", {}, network).startEmail("a@b.example", {});
    },
    [](const HttpTransport& network) {
        AccountClient("https://a.example/", {}, network).signOut("token", {});
    },
    [](const HttpTransport& network) {
        AccountClient("https://a.example/", {}, network)
            .exchangeGoogle("code", "scheme:/redirect", "client", "verifier", {});
    },
};

constexpr std::array statuses{ 200, 204, 301, 400, 401, 402, 403, 404, 429, 500, 503 };

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const HTTPResult reply{
        .data = { reinterpret_cast<const char*>(data) + 2, size - 2 },
        .status = statuses[data[1] % statuses.size()],
        .requestID = std::nullopt,
    };
    try {
        calls[data[0] % calls.size()](
            [&](const HttpRequest&, const std::stop_token&) { return reply; });
    } catch (const VeskoError&) {
    } catch (const PlusFailure&) {
    } catch (const AuthFailure&) {
    } catch (const JsonError&) {
    }
    return 0;
}
