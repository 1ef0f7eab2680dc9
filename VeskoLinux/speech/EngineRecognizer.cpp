#include "VeskoLinux/speech/EngineRecognizer.h"

#include "VeskoApp/async/Eventual.h"
#include "VeskoLinux/speech/PreferredLanguages.h"
#include "VeskoLinux/speech/RecordingRecognition.h"
#include "VeskoLinux/speech/SpeechSamples.h"

#include <stdexcept>
#include <utility>

namespace vesko {

// What is left of a recognition once nobody wants it any more.
struct EngineRecognizer::Ticket {
    std::shared_ptr<const SpeechEngine> engine;
    SpeechEngine::Wish wish;
    bool wanted = true;
    std::stop_source stop = {};

    // Of a hearing.
    std::shared_ptr<SpokenSound> sound = nullptr;
    // What was heard; nothing if it has to be looked for in the file.
    Eventual<std::optional<RecognizedSpeech>> heard = {};

    PieceRecognition recognition() const { return { engine, wish, stop.get_token() }; }
};

class EngineRecognizer::Listening final : public Hearing {
public:
    explicit Listening(std::shared_ptr<Ticket> held)
        : ticket(std::move(held))
    {
    }
    ~Listening() override { ticket->stop.request_stop(); }
    std::shared_ptr<SoundListener> listener() override { return ticket->sound; }

    const std::shared_ptr<Ticket> ticket;
};

namespace {

RecognizedSpeech recognizedFile(const std::filesystem::path& audio, PieceRecognition recognition,
    int longestPiece, const std::stop_token& stop, const std::function<void(double)>& progress)
{
    const auto samples = speechSamples(audio, stop);
    std::size_t taken = 0;
    for (const auto piece : speechPieces(samples, longestPiece)) {
        if (stop.stop_requested())
            break;
        if (taken > 0)
            progress(static_cast<double>(taken) / static_cast<double>(samples.size()));
        recognition.take(piece);
        taken += piece.size();
    }
    return std::move(recognition).result();
}

OnDeviceRecognizer::Report reportOf(RecognizedSpeech speech)
{
    return { .text = std::move(speech.text),
        .isFinal = true,
        .failed = false,
        .model = std::move(speech.model),
        .language = std::move(speech.language) };
}

} // namespace

EngineRecognizer::EngineRecognizer(std::shared_ptr<const SpeechEngine> engine)
    : m_engine(std::move(engine))
{
}

void EngineRecognizer::use(std::shared_ptr<const SpeechEngine> engine)
{
    m_engine = std::move(engine);
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

void EngineRecognizer::expect(std::string words)
{
    m_expected = std::move(words);
}

std::unique_ptr<Hearing> EngineRecognizer::hear(const std::string& language)
{
    auto ticket = std::make_shared<Ticket>(
        Ticket{ .engine = m_engine, .wish = { .language = language, .prompt = m_expected } });
    ticket->sound = std::make_shared<SpokenSound>();
    m_tasks.spawn(listen(ticket));
    return std::make_unique<Listening>(std::move(ticket));
}

Task<> EngineRecognizer::listen(std::shared_ptr<Ticket> ticket)
{
    std::optional<RecognizedSpeech> heard;
    try {
        heard = co_await m_listener.run([ticket](const std::stop_token& theEnd) {
            const std::stop_callback also(theEnd, [&] { ticket->stop.request_stop(); });
            return ticket->sound->recognized(
                ticket->recognition(), ticket->engine->longestPiece(), ticket->stop.get_token());
        });
    } catch (const std::exception&) {
        // The file gets an attempt of its own.
    }
    ticket->heard.set(std::move(heard));
}

std::unique_ptr<OnDeviceRecognizer::Recognition> EngineRecognizer::recognize(
    const std::filesystem::path& audio, const std::string& language,
    std::function<void(const Report&)> report, std::unique_ptr<Hearing> heard)
{
    struct Running final : Recognition {
        Running(std::shared_ptr<Ticket> held, std::unique_ptr<Hearing> hearing)
            : ticket(std::move(held))
            , heard(std::move(hearing))
        {
        }
        ~Running() override
        {
            ticket->wanted = false;
            ticket->stop.request_stop();
        }
        std::shared_ptr<Ticket> ticket;
        std::unique_ptr<Hearing> heard;
    };
    auto ticket = std::make_shared<Ticket>(
        Ticket{ .engine = m_engine, .wish = { .language = language, .prompt = m_expected } });
    const auto* listening = dynamic_cast<Listening*>(heard.get());
    const bool fits = listening && listening->ticket->engine == m_engine
        && listening->ticket->wish.language == language;
    m_tasks.spawn(run(ticket, audio, fits ? listening->ticket : nullptr, std::move(report)));
    return std::make_unique<Running>(std::move(ticket), fits ? std::move(heard) : nullptr);
}

Task<> EngineRecognizer::run(std::shared_ptr<Ticket> ticket, std::filesystem::path audio,
    std::shared_ptr<Ticket> heard, std::function<void(const Report&)> report)
{
    // From the worker; nothing of it comes once the last report is out.
    const auto progress = [this, ticket, report](double done) {
        QMetaObject::invokeMethod(
            &m_home,
            [ticket, report, done] {
                if (ticket->wanted)
                    report({ .done = done });
            },
            Qt::QueuedConnection);
    };
    Report last;
    try {
        std::optional<RecognizedSpeech> speech;
        if (heard)
            speech = co_await heard->heard;
        if (!speech && ticket->wanted)
            speech
                = co_await m_worker.run([ticket, audio, progress](const std::stop_token& theEnd) {
                      const std::stop_callback also(theEnd, [&] { ticket->stop.request_stop(); });
                      return recognizedFile(audio, ticket->recognition(),
                          ticket->engine->longestPiece(), ticket->stop.get_token(), progress);
                  });
        if (speech)
            last = reportOf(std::move(*speech));
    } catch (const std::exception&) {
        last.failed = true;
    }
    if (ticket->wanted)
        report(last);
}

} // namespace vesko
