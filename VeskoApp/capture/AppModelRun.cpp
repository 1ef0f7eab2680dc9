#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/capture/AudioBytes.h"
#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/capture/SafeMessage.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/insertion/PersonalDictionary.h"

#include <utility>

namespace vesko {

void AppModel::retry(const Recording& recording, bool copyWhenDone)
{
    if (m_phase != Phase::idle)
        return;
    setPhase(Phase::processing);
    setErrorMessage({});
    setMessage(L10N_KEY("Vesko", "Original saved. Transcribing…"));
    m_tasks.spawn(transcribe(recording, settings(), std::nullopt, copyWhenDone));
}

Task<> AppModel::transcribe(Recording recording, CaptureSettings settings,
    std::optional<Destination> destination, bool copyWhenDone, std::optional<ServiceKey> early)
{
    if (!m_libraryReady) {
        setPhase(Phase::idle);
        co_return;
    }
    const bool apple = settings.provider == "apple";
    const auto key = fetchKey(settings, std::move(early));
    std::optional<Uuid> attemptID;
    TranscriptResult result;
    std::exception_ptr failure;
    try {
        const auto attempt = co_await m_store.run(
            [id = recording.id, provider = std::string(apple ? "Apple on-device" : "OpenRouter"),
                model = apple ? "apple/on-device/" + settings.language : settings.model,
                cleanupModel = settings.cleanup || settings.translateTo
                    ? std::optional(settings.cleanupModel)
                    : std::nullopt](LibraryStore& store) {
                return store.beginAttempt(id, provider, model, cleanupModel);
            });
        attemptID = attempt.id;
        co_await refreshLibrary();
        auto audio = co_await m_store.run(
            [recording](const LibraryStore& store) { return store.audioURL(recording); });
        result = co_await runAttempt(recording, attempt.id, std::move(audio), settings, key);
        co_await refreshLibrary();
    } catch (...) {
        failure = std::current_exception();
    }
    if (failure) {
        co_await runFailed(recording.id, attemptID, safeMessage(failure));
        co_return;
    }

    if (copyWhenDone)
        co_await deliver(result.text, settings.paste, std::move(destination));
    else
        setMessage(L10N_KEY("Vesko", "Saved to your note"));
    if (result.warning)
        setErrorMessage(*result.warning);
    qCInfo(captureLog, "transcription_saved");
    track(UsageEvent::transcriptionSucceeded);
    setPhase(Phase::idle);
}

// From speech to the final text; once completeAttempt has succeeded the transcript is safe.
Task<TranscriptResult> AppModel::runAttempt(Recording recording, Uuid attemptID,
    std::filesystem::path audio, CaptureSettings settings, std::optional<ServiceKey> key)
{
    TranscriptResult result = co_await recognize(std::move(audio), settings, std::move(key));
    result.text = PersonalDictionary::apply(settings.dictionary, result.text);
    co_await m_store.run([id = recording.id, attemptID, result](LibraryStore& store) {
        store.completeAttempt(id, attemptID, result);
    });
    if (settings.language == "auto")
        askLanguage(result.rawText, recording);
    if (settings.cleanup || settings.translateTo)
        result = co_await transformTranscript(recording.id, attemptID, result, settings);
    co_return result;
}

// None where no service needs one.
std::optional<AppModel::ServiceKey> AppModel::fetchKey(
    const CaptureSettings& settings, std::optional<ServiceKey> early)
{
    if (settings.provider == "apple")
        return std::nullopt;
    ServiceKey key;
    m_tasks.spawn(loadKey(Preferences::keyAccount(settings.keySource), std::move(early), key));
    return key;
}

Task<> AppModel::loadKey(std::string account, std::optional<ServiceKey> early, ServiceKey into)
{
    KeyOutcome outcome;
    if (early)
        outcome = co_await *early;
    // What was missing when the recording began may be there by now.
    if (!outcome.key || outcome.key->empty()) {
        outcome = {};
        try {
            outcome.key = co_await m_keychain.load(std::move(account));
        } catch (const std::exception&) {
            outcome.failure = std::current_exception();
        }
    }
    into.set(std::move(outcome));
}

// With a service's key by OpenRouter, else on this machine.
Task<TranscriptResult> AppModel::recognize(
    std::filesystem::path audio, CaptureSettings settings, std::optional<ServiceKey> key)
{
    if (!key)
        co_return co_await m_apple.transcribe(std::move(audio), settings.language);
    const KeyOutcome loaded = co_await *key;
    if (loaded.failure)
        std::rethrow_exception(loaded.failure);
    if (!loaded.key || loaded.key->empty())
        throw VeskoError(VeskoError::missingKey);
    co_return co_await m_network.run([client = m_client, audio = std::move(audio), settings,
                                         key = *loaded.key](const std::stop_token& stop) {
        return client.transcribe(audioBytes(audio), "m4a", settings.model, settings.language, key,
            settings.cloudAllowed, stop);
    });
}

Task<> AppModel::deliver(std::string text, bool paste, std::optional<Destination> destination)
{
    if (!copy(text))
        co_return;
    std::vector<std::string> reasons;
    std::optional<FocusDestination> field;
    if (!paste) {
        reasons = { "paste_off" };
    } else {
        if (destination)
            field = co_await *destination;
        if (field)
            reasons = co_await field->attemptPaste(
                m_platform.focusedField, m_platform.pasteKeystroke, m_platform.clock);
        else
            reasons = { "no_field" };
    }
    if (!reasons.empty()) {
        setMessage(pasteMessage(reasons));
        co_return;
    }
    setMessage(L10N_KEY("Vesko", "Copied. Paste sent to the original field."));
    if (m_preferences.learnCorrections.get())
        m_insertionReview.start(std::move(*field), text,
            [this](std::vector<DictionarySuggestion> corrections, bool sent) {
                corrected(std::move(corrections), sent);
            });
}

bool AppModel::copy(const std::string& text)
{
    if (!m_platform.clipboard.setText(text)) {
        setErrorMessage(L10N_KEY("Vesko",
            "The text is saved, but the clipboard could not be updated. Copy it from your note."));
        return false;
    }
    track(UsageEvent::textCopied);
    setMessage(L10N_KEY("Vesko", "Copied to clipboard"));
    return true;
}

Task<> AppModel::runFailed(Uuid recordingID, std::optional<Uuid> attemptID, std::string message)
{
    track(UsageEvent::transcriptionFailed);
    if (attemptID) {
        try {
            co_await m_store.run([recordingID, id = *attemptID, message](LibraryStore& store) {
                store.failAttempt(recordingID, id, message);
            });
        } catch (const std::exception&) {
            report(std::current_exception());
        }
    }
    setErrorMessage(message);
    setMessage(L10N_KEY("Vesko", "Audio saved. Transcription needs attention."));
    qCCritical(captureLog, "transcription_failed");
    co_await refreshLibrary();
    setPhase(Phase::idle);
}

} // namespace vesko
