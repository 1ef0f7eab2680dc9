#include "VeskoApp/transcription/OnDeviceTranscriber.h"

#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"

#include <ranges>
#include <utility>
#include <variant>

namespace vesko {

namespace {

constexpr double watchdogDelay = 65; // seconds

using Outcome = std::variant<OnDeviceRecognizer::Report, CaptureFailure>;

// The user's own spellings, the newest first, as far as engines take them.
std::string expectedWords(const CaptureSettings& settings)
{
    constexpr std::size_t longest = 400; // bytes; whisper looks at some 200 words
    std::string words;
    if (!settings.expectTerms)
        return words;
    for (const auto& entry : settings.dictionary | std::views::reverse) {
        const auto& term = entry.replacement;
        if (entry.enabled && words.size() + term.size() + 2 <= longest)
            words += (words.empty() ? "" : ", ") + term;
    }
    return words;
}

} // namespace

OnDeviceTranscriber::OnDeviceTranscriber(OnDeviceRecognizer& recognizer, EventClock& clock)
    : m_recognizer(recognizer)
    , m_clock(clock)
{
}

std::string OnDeviceTranscriber::languageOf(const CaptureSettings& settings) const
{
    const bool known = settings.language != "auto" || m_recognizer.supports("auto");
    return known ? settings.language : m_recognizer.systemLanguage();
}

std::unique_ptr<Hearing> OnDeviceTranscriber::listen(const CaptureSettings& settings)
{
    const auto tag = languageOf(settings);
    if (!m_recognizer.authorized() || !m_recognizer.supports(tag) || !m_recognizer.available())
        return nullptr;
    m_recognizer.expect(expectedWords(settings));
    return m_recognizer.hear(tag);
}

Task<TranscriptResult> OnDeviceTranscriber::transcribe(std::filesystem::path audio,
    CaptureSettings settings, std::unique_ptr<Hearing> heard, std::function<void(double)> progress)
{
    if (!m_recognizer.authorized())
        throw CaptureFailure(L10N_KEY("Vesko",
            "Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter."));
    const std::string tag = languageOf(settings);
    if (!m_recognizer.supports(tag))
        throw CaptureFailure(L10N_KEY("Vesko",
            "On-device speech is unavailable for this language. Choose another language or "
            "OpenRouter. Your audio is saved."));
    if (!m_recognizer.available())
        throw CaptureFailure(L10N_KEY("Vesko",
            "On-device speech is not available right now. Your audio is saved. Try again or "
            "choose OpenRouter."));

    // The first of recogniser and watchdog wins; the other finds the outcome settled. A cancelled
    // caller takes all of this frame with it.
    const Eventual<Outcome> outcome;
    Timer watchdog(m_clock);
    watchdog.start(watchdogDelay, [outcome] {
        outcome.set(CaptureFailure(
            L10N_KEY("Vesko", "On-device transcription timed out. Your audio is saved.")));
    });
    m_recognizer.expect(expectedWords(settings));
    const auto recognition = m_recognizer.recognize(
        audio, tag,
        [outcome, progress = std::move(progress)](const OnDeviceRecognizer::Report& report) {
            if (report.done && progress)
                progress(*report.done);
            if (report.isFinal && report.text)
                outcome.set(report);
            else if (report.failed)
                outcome.set(CaptureFailure(L10N_KEY("Vesko",
                    "On-device transcription failed. Your audio is saved. Retry or choose "
                    "OpenRouter.")));
        },
        std::move(heard));
    const Outcome settled = co_await outcome;
    if (const auto* failure = std::get_if<CaptureFailure>(&settled))
        throw *failure;
    const auto& report = std::get<OnDeviceRecognizer::Report>(settled);
    const std::string text(trimmed(*report.text));
    if (text.empty())
        throw VeskoError(VeskoError::noSpeech);
    TranscriptResult result;
    result.rawText = text;
    result.text = text;
    if (!report.model.empty())
        result.model = report.model;
    result.language = report.language;
    co_return result;
}

} // namespace vesko
