#include "VeskoCore/speech/OpenRouterClient.h"

#include "VeskoCore/base/Digest.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/Curl.h"
#include "VeskoCore/speech/CurlTransport.h"
#include "VeskoCore/speech/ServiceAnswer.h"

#include <cstdlib>
#include <memory>

namespace vesko {

// The body of the speech call.
struct InputAudio {
    Base64 data;
    std::string format;
};

struct SpeechRequest {
    InputAudio inputAudio;
    std::optional<std::string> language;
    std::string model;
    std::string responseFormat;
};

template <>
inline constexpr std::tuple jsonFields<InputAudio>{
    JsonField{ "data", &InputAudio::data },
    JsonField{ "format", &InputAudio::format },
};

template <>
inline constexpr std::tuple jsonFields<SpeechRequest>{
    JsonField{ "input_audio", &SpeechRequest::inputAudio },
    JsonField{ "language", &SpeechRequest::language },
    JsonField{ "model", &SpeechRequest::model },
    JsonField{ "response_format", &SpeechRequest::responseFormat },
};

namespace {

// Seconds.
constexpr double longestSilence = 75;
constexpr double longestExchange = 90;

TranscriptResult transcriptOf(const HTTPResult& result)
{
    const ServiceAnswer answer(result.data);
    const auto text = answer.required<std::string_view>(answer.root(), "text");
    const std::optional<double> cost = answer.cost();
    const std::string words(trimmed(text));
    if (words.empty())
        throw VeskoError(VeskoError::emptyTranscript);
    return { .rawText = words,
        .text = words,
        .cost = cost,
        .requestID = result.requestID,
        .warning = std::nullopt };
}

void requireURL(const std::string& url)
{
    const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> parts(
        curl().url(), curl().urlCleanup);
    if (curl().urlSet(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK)
        std::abort(); // a fault of this program: its addresses are its own
}

} // namespace

OpenRouterClient::OpenRouterClient(std::string baseURL, HttpTransport transport)
    : m_baseURL(std::move(baseURL))
    , m_transport(transport ? std::move(transport) : curlTransport())
{
}

HTTPResult OpenRouterClient::send(const std::string& path, std::optional<std::string_view> key,
    std::optional<std::string> body, std::stop_token stop) const
{
    HttpRequest request{ .url = serviceURL(m_baseURL, path),
        .method = body ? "POST" : "GET",
        .headers = { { "Content-Type", "application/json" }, { "X-Title", "Vesko" } },
        .body = std::move(body),
        .timeout = longestSilence,
        .resourceTimeout = longestExchange };
    requireURL(request.url);
    if (key) {
        const std::string_view bearer = trimmed(*key);
        if (bearer.empty() || bearer.find_first_of("\r\n") != std::string_view::npos)
            throw VeskoError(VeskoError::missingKey);
        request.bearer = bearer;
    }
    HTTPResult result = m_transport(request, std::move(stop));
    if (result.status < 200 || result.status > 299)
        throw VeskoError::http(result.status);
    return result;
}

TranscriptResult OpenRouterClient::transcribe(const std::string& audio, const std::string& format,
    const std::string& model, const std::optional<std::string>& language, std::string_view key,
    bool allowProcessing, std::stop_token stop) const
{
    if (!allowProcessing)
        throw VeskoError(VeskoError::cloudConsentRequired);
    if (trimmed(key).empty())
        throw VeskoError(VeskoError::missingKey);
    if (trimmed(model).empty())
        throw VeskoError(VeskoError::invalidModel);
    if (audio.empty())
        throw VeskoError(VeskoError::emptyTranscript);
    if (audio.size() > audioLimit)
        throw VeskoError(VeskoError::audioTooLarge);

    SpeechRequest request{ .inputAudio = { { audio }, format },
        .language = std::nullopt,
        .model = model,
        .responseFormat = "json" };
    if (language && !language->empty() && *language != "auto")
        request.language = firstCharacters(*language, 2);
    auto body = JsonWriter::write(
        request, JsonWriter::Form::compact, request.inputAudio.data.roomInDocument());
    return transcriptOf(send("audio/transcriptions", key, std::move(body), std::move(stop)));
}

} // namespace vesko
