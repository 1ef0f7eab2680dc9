// The operations that record a try at transcribing, and the only place where a transcript enters a
// note by itself. The first usable transcript is kept at once; a later, better text replaces it
// only while nobody has touched the note.

#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/LibraryStore.h"

#include <algorithm>

namespace vesko {

namespace {

// The position of the first attempt that fits. Throws notFound.
template <class Condition>
std::size_t position(const Recording& recording, Condition condition)
{
    const auto found = std::ranges::find_if(recording.attempts, condition);
    if (found == recording.attempts.end())
        throw VeskoError(VeskoError::notFound);
    return static_cast<std::size_t>(found - recording.attempts.begin());
}

void markApplied(Note& note, Recording& recording, Date now)
{
    note.updatedAt = now;
    recording.appliedBodyRevision = now;
}

} // namespace

TranscriptionAttempt LibraryStore::beginAttempt(const Uuid& recordingID,
    const std::string& provider, const std::string& model,
    const std::optional<std::string>& cleanupModel)
{
    const auto at = location(recordingID);
    const auto& current = m_library.notes[at.note];
    if (current.deletedAt
        || current.recordings[at.recording].status == RecordingStatus::transcribing)
        throw VeskoError(VeskoError::libraryBusy);
    if (current.recordings[at.recording].audioRemovedAt)
        throw VeskoError(VeskoError::notFound);
    TranscriptionAttempt attempt;
    attempt.id = Uuid::random();
    attempt.provider = provider;
    attempt.model = model;
    attempt.cleanupModel = cleanupModel;
    attempt.startedAt = m_clock.now();
    changeNote(at.note, [&](Note& note) {
        auto& recording = note.recordings[at.recording];
        recording.attempts.push_back(attempt);
        recording.status = RecordingStatus::transcribing;
        recording.errorMessage.reset();
    });
    return attempt;
}

void LibraryStore::completeAttempt(
    const Uuid& recordingID, const Uuid& attemptID, const TranscriptResult& result)
{
    if (trimmed(result.rawText).empty() || trimmed(result.text).empty())
        throw VeskoError(VeskoError::emptyTranscript);
    const auto at = location(recordingID);
    const auto index = position(m_library.notes[at.note].recordings[at.recording],
        [&](const TranscriptionAttempt& attempt) {
            return attempt.id == attemptID && attempt.status == AttemptStatus::running;
        });
    changeNote(at.note, [&](Note& note) {
        auto& recording = note.recordings[at.recording];
        auto& attempt = recording.attempts[index];
        attempt.rawText = result.rawText;
        attempt.text = result.text == result.rawText ? *attempt.rawText : SharedText(result.text);
        attempt.model = result.model.value_or(attempt.model);
        attempt.detectedLanguage = result.language;
        attempt.cost = result.cost;
        attempt.requestID = result.requestID;
        attempt.errorMessage = result.warning;
        attempt.status = AttemptStatus::ready;
        attempt.completedAt = m_clock.now();
        recording.status = RecordingStatus::ready;
        if (recording.appendedToNote)
            return;
        if (note.body.empty())
            note.body = *attempt.text;
        else
            note.body += "\n\n" + result.text;
        recording.appendedToNote = true;
        markApplied(note, recording, m_clock.now());
    });
}

void LibraryStore::updateCleanup(
    const Uuid& recordingID, const Uuid& attemptID, const TranscriptResult& result)
{
    const auto at = location(recordingID);
    const auto index = position(m_library.notes[at.note].recordings[at.recording],
        [&](const TranscriptionAttempt& attempt) {
            return attempt.id == attemptID && attempt.status == AttemptStatus::ready
                && attempt.text;
        });
    changeNote(at.note, [&](Note& note) {
        auto& recording = note.recordings[at.recording];
        auto& attempt = recording.attempts[index];
        const std::string previous = *attempt.text;
        attempt.text = result.text;
        attempt.cost = result.cost;
        attempt.errorMessage = result.warning;
        // Any edit since has given the note another date: then the user's words win.
        const std::string_view body = note.body;
        if (recording.appliedBodyRevision != note.updatedAt || !body.ends_with(previous))
            return;
        note.body = std::string(body.substr(0, body.size() - previous.size())) + result.text;
        markApplied(note, recording, m_clock.now());
    });
}

void LibraryStore::failAttempt(
    const Uuid& recordingID, const Uuid& attemptID, const std::string& message)
{
    const auto at = location(recordingID);
    const auto index = position(m_library.notes[at.note].recordings[at.recording],
        [&](const TranscriptionAttempt& attempt) { return attempt.id == attemptID; });
    changeNote(at.note, [&](Note& note) {
        auto& recording = note.recordings[at.recording];
        auto& attempt = recording.attempts[index];
        attempt.status = AttemptStatus::failed;
        attempt.completedAt = m_clock.now();
        attempt.errorMessage = message;
        recording.status = RecordingStatus::failed;
        recording.errorMessage = message;
    });
}

} // namespace vesko
