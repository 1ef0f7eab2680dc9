#include "VeskoLinux/speech/engines/ServerEngine.h"

#include "VeskoCore/library/VeskoError.h"
#include "VeskoCore/speech/Wave.h"
#include "VeskoLinux/speech/SpeechSamples.h"

#include <utility>

namespace vesko {

namespace {

class ServerSession final : public SpeechEngine::Session {
public:
    ServerSession(const TranscriptionServer& server, std::string model, SpeechEngine::Wish wish,
        std::stop_token stop)
        : m_server(server)
        , m_model(std::move(model))
        , m_wish(std::move(wish))
        , m_stop(std::move(stop))
    {
    }

    EngineAnswer heard(std::span<const std::int16_t> piece) override
    {
        try {
            auto answer = m_server.transcribe(
                wave(piece, speechRate), m_wish.language, m_wish.prompt, m_stop);
            answer.text = spokenText(answer.text);
            if (!m_model.empty())
                answer.model = m_model;
            return answer;
        } catch (const VeskoError&) {
            throw EngineFailure("the server refused the sound");
        } catch (const URLError&) {
            throw EngineFailure("the server can't be reached");
        }
    }

private:
    TranscriptionServer m_server;
    std::string m_model;
    SpeechEngine::Wish m_wish;
    std::stop_token m_stop;
};

} // namespace

ServerEngine::ServerEngine(TranscriptionServer::Place place, HttpTransport transport)
    : m_place(place)
    , m_server(std::move(place), std::move(transport))
{
}

std::unique_ptr<SpeechEngine::Session> ServerEngine::begin(
    const Wish& wish, std::stop_token stop) const
{
    if (!TranscriptionServer::endpoint(m_place.address))
        throw EngineFailure("the server's address is none");
    return std::make_unique<ServerSession>(m_server, m_place.model, wish, std::move(stop));
}

} // namespace vesko
