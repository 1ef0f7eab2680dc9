#include "VeskoLinux/speech/EngineRecognizer.h"

#include "VeskoLinux/speech/PreferredLanguages.h"
#include "VeskoLinux/speech/SpeechSamples.h"

#include <stdexcept>
#include <utility>

namespace vesko {

namespace {

std::string recognized(const SpeechEngine& engine, const std::filesystem::path& audio,
    const std::string& language, const std::stop_token& stop)
{
    std::string text;
    const auto samples = speechSamples(audio, stop);
    if (stop.stop_requested())
        return text;
    const auto session = engine.begin({ .language = language }, stop);
    for (const auto piece : speechPieces(samples, engine.longestPiece())) {
        const auto words = session->heard(piece).text;
        if (!words.empty())
            text += (text.empty() ? "" : " ") + words;
    }
    return text;
}

} // namespace

// What is left of a recognition once nobody wants it any more.
struct EngineRecognizer::Ticket {
    bool wanted = true;
    std::stop_source stop;
};

EngineRecognizer::EngineRecognizer(std::shared_ptr<const SpeechEngine> engine)
    : m_engine(std::move(engine))
{
}

bool EngineRecognizer::supports(const std::string& language) const
{
    return m_engine->speaks(language);
}

std::string EngineRecognizer::systemLanguage() const
{
    const auto languages = preferredLanguages();
    return languages.empty() ? "en" : languages.front();
}

std::unique_ptr<OnDeviceRecognizer::Recognition> EngineRecognizer::recognize(
    const std::filesystem::path& audio, const std::string& language,
    std::function<void(const Report&)> report)
{
    struct Running final : Recognition {
        explicit Running(std::shared_ptr<Ticket> held)
            : ticket(std::move(held))
        {
        }
        ~Running() override
        {
            ticket->wanted = false;
            ticket->stop.request_stop();
        }
        std::shared_ptr<Ticket> ticket;
    };
    auto ticket = std::make_shared<Ticket>();
    m_tasks.spawn(run(ticket, audio, language, std::move(report)));
    return std::make_unique<Running>(std::move(ticket));
}

Task<> EngineRecognizer::run(std::shared_ptr<Ticket> ticket, std::filesystem::path audio,
    std::string language, std::function<void(const Report&)> report)
{
    Report last;
    try {
        last.text = co_await m_worker.run(
            [engine = m_engine, audio, language, ticket](const std::stop_token& theEnd) {
                const std::stop_callback also(theEnd, [&] { ticket->stop.request_stop(); });
                return recognized(*engine, audio, language, ticket->stop.get_token());
            });
        last.isFinal = true;
    } catch (const std::exception&) {
        last.failed = true;
    }
    if (ticket->wanted)
        report(last);
}

} // namespace vesko
