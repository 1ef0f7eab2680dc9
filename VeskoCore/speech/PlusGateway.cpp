#include "VeskoCore/speech/PlusGateway.h"

#include "VeskoCore/base/Digest.h"
#include "VeskoCore/base/JsonText.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/CurlTransport.h"
#include "VeskoCore/speech/PlusFailure.h"
#include "VeskoCore/speech/ServiceAnswer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vesko {

// The body of the speech call.
struct PlusSpeechRequest {
    Base64 audio;
    std::string format;
    std::optional<std::string> language;
    std::string model;
    std::string requestID;
    double seconds = 0; // a whole number
};

// The body of the text call.
struct PlusTextRequest {
    PlusGateway::TextMode mode;
    std::string model;
    std::string requestID;
    std::optional<std::string> target;
    std::string text;
};

template <>
inline constexpr auto jsonNames<PlusGateway::TextMode>
    = std::to_array<std::string_view>({ "cleanup", "translate", "both" });

template <>
inline constexpr std::tuple jsonFields<PlusSpeechRequest>{
    JsonField{ "audio", &PlusSpeechRequest::audio },
    JsonField{ "format", &PlusSpeechRequest::format },
    JsonField{ "language", &PlusSpeechRequest::language },
    JsonField{ "model", &PlusSpeechRequest::model },
    JsonField{ "requestId", &PlusSpeechRequest::requestID },
    JsonField{ "seconds", &PlusSpeechRequest::seconds },
};

template <>
inline constexpr std::tuple jsonFields<PlusTextRequest>{
    JsonField{ "mode", &PlusTextRequest::mode },
    JsonField{ "model", &PlusTextRequest::model },
    JsonField{ "requestId", &PlusTextRequest::requestID },
    JsonField{ "target", &PlusTextRequest::target },
    JsonField{ "text", &PlusTextRequest::text },
};

namespace {

constexpr std::size_t audioLimit = 26'214'400; // bytes before encoding

// Seconds.
constexpr double idleTime = 60;
constexpr double exchangeTime = 120;

HttpTransport gatewayTransport()
{
    return [transport = curlTransport()](const HttpRequest& request, std::stop_token stop) {
        try {
            return transport(request, std::move(stop));
        } catch (const VeskoError&) {
            throw PlusFailure(PlusFailure::invalidResponse);
        }
    };
}

PlusFailure failureOf(const HTTPResult& result)
{
    simdjson::dom::parser parser;
    std::string_view code;
    const bool found
        = parseJson(parser, result.data).at_key("error").get(code) == simdjson::SUCCESS;
    return PlusFailure::from(found ? std::optional(code) : std::nullopt, result.status);
}

// What `read` takes out of an answer, in which everything has to be as it should.
template <class Read>
auto decoded(const std::string& data, Read read)
{
    try {
        const ServiceAnswer answer(data);
        return read(answer.root());
    } catch (const VeskoError&) {
        throw PlusFailure(PlusFailure::invalidResponse);
    }
}

TranscriptResult reply(const std::string& data, const std::string& requestID)
{
    auto result = decoded(data, [](const ServiceAnswer::Object& root) {
        // That it is there tells an answer of this service from any other.
        ServiceAnswer::required<std::string_view>(root, "state");
        TranscriptResult read;
        read.rawText = trimmed(ServiceAnswer::required<std::string_view>(root, "text"));
        read.cost = ServiceAnswer::optional<double>(root, "costUsd");
        return read;
    });
    if (result.rawText.empty())
        throw VeskoError(VeskoError::emptyTranscript);
    result.text = result.rawText;
    result.requestID = requestID;
    return result;
}

} // namespace

PlusGateway::PlusGateway(std::string baseURL, HttpTransport transport)
    : m_baseURL(std::move(baseURL))
    , m_transport(transport ? std::move(transport) : gatewayTransport())
{
}

std::string PlusGateway::send(const std::string& path, std::string_view token,
    std::optional<std::string> body, std::stop_token stop) const
{
    HttpRequest request{ .url = serviceURL(m_baseURL, path),
        .method = body ? "POST" : "GET",
        .headers = {},
        .bearer = token,
        .body = std::move(body),
        .timeout = idleTime,
        .resourceTimeout = exchangeTime };
    if (request.body)
        request.headers.emplace_back("Content-Type", "application/json");
    HTTPResult result = m_transport(request, std::move(stop));
    if (result.status < 200 || result.status > 299)
        throw failureOf(result);
    return std::move(result.data);
}

TranscriptResult PlusGateway::transcribe(const std::string& audio, const std::string& format,
    double seconds, const std::string& model, const std::optional<std::string>& language,
    std::string_view token, const std::string& requestID, std::stop_token stop) const
{
    if (audio.empty())
        throw VeskoError(VeskoError::emptyTranscript);
    if (audio.size() > audioLimit)
        throw PlusFailure(PlusFailure::audioTooLarge);
    PlusSpeechRequest request{ .audio = { audio },
        .format = format,
        .language = std::nullopt,
        .model = model,
        .requestID = requestID,
        .seconds = std::max(std::ceil(seconds), 1.0) };
    if (language && !language->empty() && *language != "auto")
        request.language = language;
    return reply(
        send("v1/plus/transcribe", token,
            JsonWriter::write(request, JsonWriter::Form::compact, request.audio.roomInDocument()),
            std::move(stop)),
        requestID);
}

TranscriptResult PlusGateway::transform(TranscriptResult transcript, TextMode mode,
    const std::optional<std::string>& target, const std::string& model, std::string_view token,
    const std::string& requestID, std::stop_token stop) const
{
    const bool translates = mode != TextMode::cleanup;
    if (translates && (!target || *target == "off"))
        throw PlusFailure(PlusFailure::invalidResponse);
    const PlusTextRequest request{ .mode = mode,
        .model = model,
        .requestID = requestID,
        .target = translates ? target : std::nullopt,
        .text = translates ? transcript.text : transcript.rawText };
    auto answer = reply(send("v1/plus/text", token,
                            JsonWriter::write(request, JsonWriter::Form::compact), std::move(stop)),
        requestID);
    transcript.text = std::move(answer.text);
    transcript.cost = sumOfCosts(transcript.cost, answer.cost);
    return transcript;
}

PlusAllowance PlusGateway::allowance(std::string_view token, std::stop_token stop) const
{
    return decoded(send("v1/plus/allowance", token, std::nullopt, std::move(stop)),
        [](const ServiceAnswer::Object& root) {
            const auto values = ServiceAnswer::required<ServiceAnswer::Object>(root, "allowance");
            const auto dollars = [&](std::string_view key) {
                return ServiceAnswer::required<double>(values, key);
            };
            return PlusAllowance{
                .period = std::string(ServiceAnswer::required<std::string_view>(values, "period")),
                .allowanceUsd = dollars("allowanceUsd"),
                .usedUsd = dollars("usedUsd"),
                .reservedUsd = dollars("reservedUsd"),
                .remainingUsd = dollars("remainingUsd"),
            };
        });
}

} // namespace vesko
