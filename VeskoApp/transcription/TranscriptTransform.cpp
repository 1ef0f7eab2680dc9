#include "VeskoApp/transcription/TranscriptTransform.h"

#include "VeskoCore/base/Localized.h"
#include "VeskoCore/insertion/PersonalDictionary.h"

#include <utility>

namespace vesko {

TranscriptTransform::TranscriptTransform(OpenRouterClient client, LibrarySession& library)
    : m_client(std::move(client))
    , m_library(library)
{
}

Task<TranscriptResult> TranscriptTransform::apply(Uuid recordingID, Uuid attemptID,
    TranscriptResult result, CaptureSettings settings, std::optional<Secret> key)
{
    if (!key || key->empty()) {
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
    const auto stored
        = co_await m_library.change([recordingID, attemptID, result](LibraryStore& store) {
              store.updateCleanup(recordingID, attemptID, result);
          });
    if (!stored)
        std::rethrow_exception(stored.error());
    co_return result;
}

} // namespace vesko
