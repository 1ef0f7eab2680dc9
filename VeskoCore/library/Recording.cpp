#include "VeskoCore/library/Recording.h"

#include "VeskoCore/base/Localized.h"

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

std::optional<SharedText> Recording::latestText() const
{
    for (const auto& attempt : attempts | std::views::reverse)
        if (attempt.text)
            return attempt.text;
    return std::nullopt;
}

} // namespace vesko
