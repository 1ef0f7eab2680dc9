#pragma once

#include "VeskoCore/base/Secret.h"
#include "VeskoCore/speech/EngineContract.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// The client of any server that takes speech as OpenAI's does, at /v1/audio/transcriptions: of this
// machine, of the house, or a hosted one. Holds nothing that changes; any thread may use it. One
// call is one exchange, never repeated and never redirected.
class TranscriptionServer {
public:
    struct Place {
        // "http://127.0.0.1:8080" or "https://host/v1"; the path behind /v1 is added, and /v1 if it
        // isn't there.
        std::string address;
        std::string model;
        std::optional<Secret> key = {};
    };
    static constexpr std::size_t audioLimit = 26'214'400; // bytes

    // The address of the exchange; nothing unless it is https, or http of this very machine,
    // without a user, a query or a fragment.
    static std::optional<std::string> endpoint(const std::string& address);
    // Whether the sound stays on this machine.
    static bool isLocal(const std::string& address);

    // Without a transport it uses libcurl: 75 seconds without progress, 90 for the whole exchange.
    explicit TranscriptionServer(Place place, HttpTransport transport = {});

    // The words of a WAV file. A language is a tag, or "auto". Throws VeskoError (notFound for an
    // address that is none, missingKey for a key that is none, audioTooLarge, before any network
    // use; invalidResponse, http for the answer) and URLError.
    EngineAnswer transcribe(const std::string& wav, const std::string& language,
        const std::string& prompt, std::stop_token stop) const;

private:
    Place m_place;
    HttpTransport m_transport;
};

} // namespace vesko
