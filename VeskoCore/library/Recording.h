#pragma once

#include "VeskoCore/library/TranscriptionAttempt.h"

#include <vector>

namespace vesko {

enum class RecordingStatus { recording, recorded, transcribing, ready, failed, interrupted };

// The status in words, a key for the catalogues.
const char* label(RecordingStatus);

// One audio capture. Its id also names the audio file.
struct Recording {
    Uuid id;
    Uuid noteID; // the note that contains it
    std::string fileName; // fileNameFor(id), whatever else a file claims is refused
    Date createdAt;
    double duration = 0; // seconds; 0 until it is finished
    RecordingStatus status = RecordingStatus::recording;
    std::vector<TranscriptionAttempt> attempts; // in the order they were begun
    bool appendedToNote = false; // a transcript has been put into the note; never cleared
    // The note's updatedAt when this recording's transcript last changed its body. While the two
    // are equal, nothing else has changed the note since.
    std::optional<Date> appliedBodyRevision;
    std::optional<std::string> errorMessage; // of the last failure or interruption
    std::optional<Date> audioRemovedAt; // to save room; only the text is left since

    // A recording that is about to begin.
    static Recording make(Uuid id, Uuid noteID, Date now);
    // The upper-case identifier and ".m4a".
    static std::string fileNameFor(const Uuid& id);

    // Whether it says that something goes on, as a process that ended in the midst leaves it.
    bool needsRepair() const;
    // Says instead that it was interrupted.
    void repair(Date now);

    // The newest text of any attempt, whatever became of later ones.
    std::optional<SharedText> latestText() const;

    bool operator==(const Recording&) const = default;
};

template <>
inline constexpr auto jsonNames<RecordingStatus> = std::to_array<std::string_view>(
    { "recording", "recorded", "transcribing", "ready", "failed", "interrupted" });

template <>
inline constexpr std::tuple jsonFields<Recording>{
    JsonField{ "appendedToNote", &Recording::appendedToNote },
    JsonField{ "appliedBodyRevision", &Recording::appliedBodyRevision },
    JsonField{ "attempts", &Recording::attempts },
    JsonField{ "audioRemovedAt", &Recording::audioRemovedAt },
    JsonField{ "createdAt", &Recording::createdAt },
    JsonField{ "duration", &Recording::duration },
    JsonField{ "errorMessage", &Recording::errorMessage },
    JsonField{ "fileName", &Recording::fileName },
    JsonField{ "id", &Recording::id },
    JsonField{ "noteID", &Recording::noteID },
    JsonField{ "status", &Recording::status },
};

} // namespace vesko
