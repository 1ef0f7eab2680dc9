#pragma once

#include "VeskoCore/library/TranscriptResult.h"
#include "VeskoCore/speech/HttpTransport.h"
#include "VeskoCore/speech/PlusAllowance.h"

#include <optional>
#include <stop_token>
#include <string>

namespace vesko {

// The client of the hosted Vesko Plus service: speech and text on the account of a user who is
// signed in, whose token every call takes as it stands. Holds nothing that changes; any thread may
// use it. One call is one exchange and is never repeated here: a caller who repeats a piece of work
// gives the same request identifier, by which the service knows it again.
//
// Throws PlusFailure for what the service refuses or answers wrongly, VeskoError::emptyTranscript
// for no words, URLError for a failed exchange and JsonError for text that is not UTF-8 or a
// duration that is not finite.
class PlusGateway {
public:
    enum class TextMode { cleanup, translate, both };

    // Of a service at this root. Without a transport it uses libcurl: 60 seconds without progress,
    // 120 for the whole exchange, no cookies, no cache.
    explicit PlusGateway(std::string baseURL, HttpTransport transport = {});

    // POST with a body, which is compact JSON, GET without. Gives the body of an answer with a
    // status from 200 to 299.
    std::string send(const std::string& path, std::string_view token,
        std::optional<std::string> body, std::stop_token stop) const;

    // Turns recorded audio of so many seconds into text. The language is a tag, and goes out whole.
    TranscriptResult transcribe(const std::string& audio, const std::string& format, double seconds,
        const std::string& model, const std::optional<std::string>& language,
        std::string_view token, const std::string& requestID, std::stop_token stop) const;

    // The transcript cleaned up (from its `rawText`), translated into the language of the target,
    // or both (from its `text`). Without a target, or with "off", there is nothing to translate
    // into: PlusFailure::invalidResponse before any network use. The cost of both steps is known
    // only if each is.
    TranscriptResult transform(TranscriptResult transcript, TextMode mode,
        const std::optional<std::string>& target, const std::string& model, std::string_view token,
        const std::string& requestID, std::stop_token stop) const;

    PlusAllowance allowance(std::string_view token, std::stop_token stop) const;

private:
    std::string m_baseURL;
    HttpTransport m_transport;
};

} // namespace vesko
