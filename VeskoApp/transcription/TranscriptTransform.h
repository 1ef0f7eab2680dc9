#pragma once

#include "VeskoApp/async/Worker.h"
#include "VeskoApp/capture/CaptureSettings.h"
#include "VeskoApp/library/LibrarySession.h"
#include "VeskoApp/preferences/ServiceKeys.h"
#include "VeskoCore/speech/OpenRouterClient.h"

namespace vesko {

// Cleans a transcript up, or translates it. The transcript is safe by now: without a key, and
// whatever the service says, the run goes on with it. Main thread.
class TranscriptTransform {
public:
    TranscriptTransform(OpenRouterClient client, ServiceKeys& keys, LibrarySession& library);

    // The better text, stored with its attempt, or the transcript with a warning.
    Task<TranscriptResult> apply(
        Uuid recordingID, Uuid attemptID, TranscriptResult result, CaptureSettings settings);

private:
    OpenRouterClient m_client;
    ServiceKeys& m_keys;
    LibrarySession& m_library;
    Worker m_network;
};

} // namespace vesko
