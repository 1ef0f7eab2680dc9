#pragma once

#include "VeskoCore/speech/TranscriptionServer.h"
#include "VeskoLinux/speech/engines/SpeechEngine.h"

namespace vesko {

// An OpenAI-compatible transcription server: one exchange a piece.
class ServerEngine final : public SpeechEngine {
public:
    explicit ServerEngine(TranscriptionServer::Place place, HttpTransport transport = {});

    std::string name() const override { return "server"; }
    // The user knows what the server speaks.
    bool speaks(const std::string&) const override { return true; }
    int longestPiece() const override { return 28; }
    // Sends nothing. Throws EngineFailure for an address that is none.
    std::unique_ptr<Session> begin(const Wish& wish, std::stop_token stop) const override;

private:
    TranscriptionServer::Place m_place;
    TranscriptionServer m_server;
};

} // namespace vesko
