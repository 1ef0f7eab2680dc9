#include "VeskoApp/transcription/OnDeviceTranscriber.h"

#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/VeskoError.h"

#include <variant>

namespace vesko {

namespace {

constexpr double watchdogDelay = 65; // seconds

using Outcome = std::variant<std::string, CaptureFailure>;

} // namespace

OnDeviceTranscriber::OnDeviceTranscriber(OnDeviceRecognizer& recognizer, EventClock& clock)
    : m_recognizer(recognizer)
    , m_clock(clock)
{
}

Task<TranscriptResult> OnDeviceTranscriber::transcribe(
    std::filesystem::path audio, std::string language)
{
    if (!m_recognizer.authorized())
        throw CaptureFailure(L10N_KEY("Vesko",
            "Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter."));
    const std::string tag = language == "auto" ? m_recognizer.systemLanguage() : language;
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
    const auto recognition
        = m_recognizer.recognize(audio, tag, [outcome](const OnDeviceRecognizer::Report& report) {
              if (report.isFinal && report.text)
                  outcome.set(*report.text);
              else if (report.failed)
                  outcome.set(CaptureFailure(L10N_KEY("Vesko",
                      "On-device transcription failed. Your audio is saved. Retry or choose "
                      "OpenRouter.")));
          });
    const Outcome settled = co_await outcome;
    if (const auto* failure = std::get_if<CaptureFailure>(&settled))
        throw *failure;
    const std::string text(trimmed(std::get<std::string>(settled)));
    if (text.empty())
        throw VeskoError(VeskoError::emptyTranscript);
    TranscriptResult result;
    result.rawText = text;
    result.text = text;
    co_return result;
}

} // namespace vesko
