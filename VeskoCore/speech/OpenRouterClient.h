#pragma once

#include "VeskoCore/library/TranscriptResult.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <string_view>

namespace vesko {

// The only client of the OpenRouter HTTP API, reached with the user's own key. Holds nothing that
// changes; any thread may use it. One call is one exchange: repeating a request, which may be
// charged again, is the user's decision. A redirect is never followed: it is an http failure.
class OpenRouterClient {
public:
    static constexpr std::string_view defaultSTTModel = "openai/whisper-large-v3-turbo";
    static constexpr std::string_view defaultCleanupModel = "xiaomi/mimo-v2.6-pro";
    static constexpr std::size_t audioLimit = 26'214'400; // bytes before encoding

    // The base URL ends in "/api/v1/". Without a transport it uses libcurl: 75 seconds without
    // progress, 90 for the whole exchange, no cookies, no cache.
    explicit OpenRouterClient(std::string baseURL, HttpTransport transport = {});

    // POST with a body, GET without. A key is trimmed and sent as a bearer token; one that is then
    // empty or holds a line end is missingKey, and nothing is sent. VeskoError::http for a status
    // outside 200 to 299, URLError for a failed exchange.
    HTTPResult send(const std::string& path, const std::optional<std::string>& key,
        std::optional<std::string> body, std::stop_token stop) const;

    // Turns recorded audio into text. Throws VeskoError (cloudConsentRequired, missingKey,
    // invalidModel, emptyTranscript, audioTooLarge, in this order and before any network use;
    // invalidResponse, http, emptyTranscript for the answer) and URLError.
    TranscriptResult transcribe(const std::string& audio, const std::string& format,
        const std::string& model, const std::optional<std::string>& language,
        const std::string& key, bool allowProcessing, std::stop_token stop) const;

private:
    std::string m_baseURL;
    HttpTransport m_transport;
};

} // namespace vesko
