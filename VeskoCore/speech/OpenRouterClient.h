#pragma once

#include "VeskoCore/library/TranscriptResult.h"
#include "VeskoCore/speech/HttpTransport.h"
#include "VeskoCore/speech/ProviderModel.h"

#include <string_view>
#include <vector>

namespace vesko {

// The only client of the OpenRouter HTTP API, reached with the user's own key. Holds nothing that
// changes; any thread may use it. One call is one exchange: repeating a request, which may be
// charged again, is the user's decision. A redirect is never followed: it is an http failure.
class OpenRouterClient {
public:
    static constexpr std::string_view defaultSTTModel = "openai/whisper-large-v3-turbo";
    static constexpr std::string_view defaultCleanupModel = "xiaomi/mimo-v2.6-pro";
    static constexpr std::size_t audioLimit = 26'214'400; // bytes before encoding
    static constexpr std::size_t mostModels = 2'000; // some times what the service has
    static constexpr std::size_t longestModelText = 200; // bytes of an identifier or a name

    // The base URL ends in "/api/v1", with a slash or without. Without a transport it uses libcurl:
    // 75 seconds without progress, 90 for the whole exchange, no cookies, no cache.
    explicit OpenRouterClient(std::string baseURL, HttpTransport transport = {});

    // POST with a body, GET without. A key is trimmed and sent as a bearer token; one that is then
    // empty or holds a line end is missingKey, and nothing is sent. VeskoError::http for a status
    // outside 200 to 299, URLError for a failed exchange.
    HTTPResult send(const std::string& path, std::optional<std::string_view> key,
        std::optional<std::string> body, std::stop_token stop) const;

    // Turns recorded audio into text. Throws VeskoError (cloudConsentRequired, missingKey,
    // invalidModel, emptyTranscript, audioTooLarge, in this order and before any network use;
    // invalidResponse, http, emptyTranscript for the answer) and URLError.
    TranscriptResult transcribe(const std::string& audio, const std::string& format,
        const std::string& model, const std::optional<std::string>& language, std::string_view key,
        bool allowProcessing, std::stop_token stop) const;

    // The models for transcription, or all of them, sorted by name as the user's locale sorts, with
    // numbers by their value; never none. Models with longer texts are left out, and of a
    // longer list all but the first mostModels. Needs no key. Throws VeskoError (http,
    // invalidResponse) and URLError.
    std::vector<ProviderModel> models(bool transcription, std::stop_token stop) const;

    // The transcript cleaned up, translated into the language of a tag, or both, by a chat model in
    // one exchange: translated from its `text`, else from its `rawText`. Never throws: whatever
    // goes wrong, the transcript comes back as it was, with a `warning`. The cost of both steps is
    // known only if each is. Asked for neither, it gives the transcript back.
    TranscriptResult transform(TranscriptResult transcript, const std::string& model,
        std::string_view key, bool allowProcessing, bool cleanup,
        const std::optional<std::string>& translateTo, std::stop_token stop) const;
    // Cleaned up only.
    TranscriptResult clean(TranscriptResult transcript, const std::string& model,
        std::string_view key, bool allowProcessing, std::stop_token stop) const;

private:
    std::string m_baseURL;
    HttpTransport m_transport;
};

} // namespace vesko
