#pragma once

#include "VeskoApp/async/Worker.h"
#include "VeskoApp/capture/CaptureSettings.h"
#include "VeskoApp/library/LibrarySession.h"
#include "VeskoCore/base/Secret.h"
#include "VeskoCore/speech/OpenRouterClient.h"

#include <optional>

namespace vesko {

// Cleans a transcript up, or translates it. The transcript is safe by now: without a key, and
// whatever the service says, the run goes on with it. Main thread.
class TranscriptTransform {
public:
    TranscriptTransform(OpenRouterClient client, LibrarySession& library);

    // The better text, stored with its attempt, or the transcript with a warning.
    Task<TranscriptResult> apply(Uuid recordingID, Uuid attemptID, TranscriptResult result,
        CaptureSettings settings, std::optional<Secret> key);

private:
    OpenRouterClient m_client;
    LibrarySession& m_library;
    Worker m_network;
};

} // namespace vesko
