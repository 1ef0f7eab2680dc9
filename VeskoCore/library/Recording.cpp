#include "VeskoCore/library/Recording.h"

#include "VeskoCore/base/Localized.h"

#include <algorithm>
#include <ranges>

namespace vesko {

const char* label(RecordingStatus status)
{
    switch (status) {
    case RecordingStatus::recording:
        return L10N_KEY("Vesko", "Recording");
    case RecordingStatus::recorded:
        return L10N_KEY("Vesko", "Audio saved");
    case RecordingStatus::transcribing:
        return L10N_KEY("Vesko", "Transcribing");
    case RecordingStatus::ready:
        return L10N_KEY("Vesko", "Transcribed");
    case RecordingStatus::failed:
        return L10N_KEY("Vesko", "Failed");
    case RecordingStatus::interrupted:
        break;
    }
    return L10N_KEY("Vesko", "Interrupted");
}

Recording Recording::make(Uuid id, Uuid noteID, Date now)
{
    Recording recording;
    recording.id = id;
    recording.noteID = noteID;
    recording.fileName = fileNameFor(id);
    recording.createdAt = now;
    return recording;
}

std::string Recording::fileNameFor(const Uuid& id)
{
    return id.text() + ".m4a";
}

bool Recording::needsRepair() const
{
    return status == RecordingStatus::recording || status == RecordingStatus::transcribing
        || std::ranges::any_of(
            attempts, [](const auto& attempt) { return attempt.status == AttemptStatus::running; });
}

void Recording::repair(Date now)
{
    if (status == RecordingStatus::recording || status == RecordingStatus::transcribing) {
        status = RecordingStatus::interrupted;
        errorMessage = L10N_KEY(
            "Vesko", "Capture was interrupted. The original file may be recovered or retried.");
    }
    for (auto& attempt : attempts)
        if (attempt.status == AttemptStatus::running) {
            attempt.status = AttemptStatus::interrupted;
            attempt.completedAt = now;
        }
}

std::optional<SharedText> Recording::latestText() const
{
    for (const auto& attempt : attempts | std::views::reverse)
        if (attempt.text)
            return attempt.text;
    return std::nullopt;
}

} // namespace vesko
