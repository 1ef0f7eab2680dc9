#include "VeskoLinux/speech/PocketSphinxRecognizer.h"

#include "VeskoCore/base/DynamicLibrary.h"
#include "VeskoLinux/speech/PreferredLanguages.h"
#include "VeskoLinux/speech/SpeechModel.h"
#include "VeskoLinux/speech/SpeechSamples.h"

#include <pocketsphinx.h>
#include <sphinxbase/err.h>

#include <stdexcept>

namespace vesko {

namespace {

// The functions of the library, which brings those of linear algebra with it.
struct PocketSphinx {
    DynamicLibrary library{ "libpocketsphinx.so.3" };
    decltype(&err_set_callback) errSetCallback = library["err_set_callback"];
    decltype(&err_set_logfp) errSetLogfp = library["err_set_logfp"];
    decltype(&ps_args) args = library["ps_args"];
    decltype(&cmd_ln_init) configInit = library["cmd_ln_init"];
    decltype(&cmd_ln_free_r) configFree = library["cmd_ln_free_r"];
    decltype(&ps_init) init = library["ps_init"];
    decltype(&ps_free) free = library["ps_free"];
    decltype(&ps_start_utt) startUtterance = library["ps_start_utt"];
    decltype(&ps_process_raw) processRaw = library["ps_process_raw"];
    decltype(&ps_end_utt) endUtterance = library["ps_end_utt"];
    decltype(&ps_get_hyp) hypothesis = library["ps_get_hyp"];
};

// Loads it with the first recognition.
const PocketSphinx& pocketSphinx()
{
    static const PocketSphinx library;
    return library;
}

struct Free {
    void operator()(cmd_ln_t* config) const { pocketSphinx().configFree(config); }
    void operator()(ps_decoder_t* decoder) const { pocketSphinx().free(decoder); }
};

// In place of the library's log, which tells what it heard. Behind a fatal error, such as a damaged
// model, the library would end the program; leaving it by an exception costs some of its memory.
void heedErrors(void*, err_lvl_t level, const char*, ...)
{
    if (level == ERR_FATAL)
        throw std::runtime_error("the speech model is damaged");
}

std::unique_ptr<ps_decoder_t, Free> decoderFor(const SpeechModel& model)
{
    const PocketSphinx& sphinx = pocketSphinx();
    sphinx.errSetCallback(heedErrors, nullptr);
    // Of this thread: the list of settings goes there past the function above.
    sphinx.errSetLogfp(nullptr);
    const std::unique_ptr<cmd_ln_t, Free> config(
        sphinx.configInit(nullptr, sphinx.args(), TRUE, "-hmm", model.acoustic.c_str(), "-lm",
            model.language.c_str(), "-dict", model.dictionary.c_str(), nullptr));
    std::unique_ptr<ps_decoder_t, Free> decoder(config ? sphinx.init(config.get()) : nullptr);
    if (!decoder)
        throw std::runtime_error("the speech model can't be loaded");
    return decoder;
}

// A piece is decoded as a whole, which takes the level of all of it into account.
std::string heard(ps_decoder_t* decoder, std::span<const std::int16_t> piece)
{
    const PocketSphinx& sphinx = pocketSphinx();
    if (sphinx.startUtterance(decoder) < 0
        || sphinx.processRaw(decoder, piece.data(), piece.size(), FALSE, TRUE) < 0
        || sphinx.endUtterance(decoder) < 0)
        throw std::runtime_error("the decoder failed");
    const char* words = sphinx.hypothesis(decoder, nullptr);
    return words ? words : "";
}

std::string recognized(
    const std::filesystem::path& audio, const SpeechModel& model, const std::stop_token& stop)
{
    std::string text;
    const auto samples = speechSamples(audio, stop);
    if (stop.stop_requested())
        return text;
    const auto decoder = decoderFor(model);
    for (const auto piece : speechPieces(samples)) {
        if (stop.stop_requested())
            break;
        const auto words = heard(decoder.get(), piece);
        if (!words.empty())
            text += (text.empty() ? "" : " ") + words;
    }
    return text;
}

} // namespace

// What is left of a recognition once nobody wants it any more.
struct PocketSphinxRecognizer::Ticket {
    bool wanted = true;
    std::stop_source stop;
};

PocketSphinxRecognizer::PocketSphinxRecognizer()
    : PocketSphinxRecognizer(VESKO_SPEECH_MODELS)
{
}

PocketSphinxRecognizer::PocketSphinxRecognizer(std::filesystem::path models)
    : m_models(std::move(models))
{
}

bool PocketSphinxRecognizer::supports(const std::string& language) const
{
    return SpeechModel::find(m_models, language).has_value();
}

std::string PocketSphinxRecognizer::systemLanguage() const
{
    const auto languages = preferredLanguages();
    return languages.empty() ? "en" : languages.front();
}

std::unique_ptr<OnDeviceRecognizer::Recognition> PocketSphinxRecognizer::recognize(
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

Task<> PocketSphinxRecognizer::run(std::shared_ptr<Ticket> ticket, std::filesystem::path audio,
    std::string language, std::function<void(const Report&)> report)
{
    Report last;
    try {
        last.text = co_await m_worker.run(
            [models = m_models, audio, language, ticket](const std::stop_token& theEnd) {
                const std::stop_callback also(theEnd, [&] { ticket->stop.request_stop(); });
                const auto model = SpeechModel::find(models, language);
                if (!model)
                    throw std::runtime_error("there is no model for this language");
                return recognized(audio, *model, ticket->stop.get_token());
            });
        last.isFinal = true;
    } catch (const std::exception&) {
        last.failed = true;
    }
    if (ticket->wanted)
        report(last);
}

} // namespace vesko
