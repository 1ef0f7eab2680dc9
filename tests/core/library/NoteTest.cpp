#include "VeskoCore/library/Note.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace std::chrono_literals;

constexpr const char* marker = "\n\nRecovered concurrent version:\n";

// A note whose last change was a transcript's, or not.
Note noteWith(const std::string& body, bool transcriptCameLast)
{
    Note note;
    note.id = Uuid::random();
    note.title = "title";
    note.body = body;
    note.updatedAt = *Date::parse("2026-11-21T10:52:00Z");
    auto other = Recording::make(Uuid::random(), note.id, note.updatedAt);
    auto recording = Recording::make(Uuid::random(), note.id, note.updatedAt);
    recording.appliedBodyRevision = note.updatedAt;
    if (!transcriptCameLast)
        recording.appliedBodyRevision->time -= 1s;
    note.recordings = { recording, other };
    return note;
}

struct DraftCase {
    const char* name;
    const char* body;
    std::optional<std::string> base;
    std::string draft, expected;
    bool transcriptCameLast = true;
};

class NoteDraftTest : public testing::TestWithParam<DraftCase> { };

TEST_P(NoteDraftTest, IsJoinedWithWhatATranscriptAdded)
{
    const auto& [name, body, base, draft, expected, transcriptCameLast] = GetParam();
    const auto note = noteWith(body, transcriptCameLast);
    const auto before = note;

    const auto changed = note.applyingDraft("new title", draft, base);

    EXPECT_EQ(changed.body, expected);
    auto rest = before;
    rest.title = "new title";
    rest.body = changed.body;
    EXPECT_EQ(changed, rest) << "more than title and body has changed";
    EXPECT_EQ(note, before);
}

INSTANTIATE_TEST_SUITE_P(Drafts, NoteDraftTest,
    testing::Values(DraftCase{ "WithoutABaseTheDraftStands", "A\n\nB", std::nullopt, "AX", "AX" },
        DraftCase{ "NobodyElseWrote", "A", "A", "AX", "AX" },
        DraftCase{ "BothWroteTheSame", "AX", "A", "AX", "AX" },
        DraftCase{ "BothWroteTheSameOnAnotherBase", "AX", "Z", "AX", "AX" },
        DraftCase{ "ATranscriptWasAppended", "A\n\nB", "A", "AX", "AX\n\nB" },
        DraftCase{ "ATranscriptCameIntoAnEmptyNote", "B", "", "X", "XB" },
        DraftCase{ "TheBodyNoLongerBeginsWithTheBase", "Z\n\nB", "A", "AX",
            std::string("AX") + marker + "Z\n\nB" },
        DraftCase{
            "TheCaseOfTheBaseDiffers", "a\n\nB", "A", "AX", std::string("AX") + marker + "a\n\nB" },
        DraftCase{
            "TheBodyIsShorterThanTheBase", "A", "AB", "AX", std::string("AX") + marker + "A" },
        DraftCase{ "AUsersOwnLaterEditIsOverwritten", "A\n\nB", "A", "AX", "AX", false },
        DraftCase{ "AUsersOwnLaterEditElsewhereIsOverwritten", "Z\n\nB", "A", "AX", "AX", false },
        DraftCase{ "TheBaseIsEncodedDifferently", "caf\u00e9\n\nB", "cafe\u0301", "X", "X\n\nB" },
        DraftCase{ "TheBodyIsTheBaseEncodedDifferently", "caf\u00e9", "cafe\u0301", "X", "X" },
        DraftCase{
            "TheBodyIsTheDraftEncodedDifferently", "caf\u00e9", "A", "cafe\u0301", "cafe\u0301" },
        DraftCase{ "TheBaseEndsWithinACharacter", "e\u0301\n\nB", "e", "X",
            std::string("X") + marker + "e\u0301\n\nB" },
        DraftCase{ "TheBaseEndsWithinALineEnd", "A\r\nB", "A\r", "X",
            std::string("X") + marker + "A\r\nB" },
        DraftCase{ "CharactersOfManyBytes", "👩‍👩‍👧 한국\n\nB",
            "👩‍👩‍👧 한국", "👍🏽", "👍🏽\n\nB" }),
    [](const auto& info) { return info.param.name; });

} // namespace
} // namespace vesko
