// Cleaning a transcript up, or translating it. The transcript is safe by now: without a key, and
// whatever the service says, the run goes on with it.

#include "VeskoApp/capture/AppModel.h"

#include "VeskoCore/base/Localized.h"
#include "VeskoCore/insertion/PersonalDictionary.h"

#include <utility>

namespace vesko {

Task<TranscriptResult> AppModel::transformTranscript(
    Uuid recordingID, Uuid attemptID, TranscriptResult result, CaptureSettings settings)
{
    const auto key = co_await transformKey(settings.keySource);
    if (!key) {
        result.warning = settings.translateTo
            ? L10N_KEY(
                  "Vesko", "Translation needs an OpenRouter key. The original transcript was kept.")
            : L10N_KEY(
                  "Vesko", "AI cleanup needs an OpenRouter key. The original transcript was kept.");
        co_return result;
    }
    result = co_await m_network.run(
        [client = m_client, result, settings, key = *key](std::stop_token stop) {
            return client.transform(result, settings.cleanupModel, key, settings.cloudAllowed,
                settings.cleanup, settings.translateTo, std::move(stop));
        });
    result.text = PersonalDictionary::apply(settings.dictionary, result.text);
    co_await m_store.run([recordingID, attemptID, result](LibraryStore& store) {
        store.updateCleanup(recordingID, attemptID, result);
    });
    co_return result;
}

// The key of the chat model, whichever provider gave the transcript. A secret store that can't be
// asked has none.
Task<std::optional<std::string>> AppModel::transformKey(std::string keySource)
{
    std::optional<std::string> key;
    try {
        key = co_await m_keychain.load(Preferences::keyAccount(keySource));
    } catch (const std::exception&) {
    }
    if (key && key->empty())
        key.reset();
    co_return key;
}

} // namespace vesko
