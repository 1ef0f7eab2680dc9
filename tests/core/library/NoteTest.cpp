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

struct Case {
    const char* name;
    const char* body;
    std::optional<std::string> base;
    std::string draft, expected;
    bool transcriptCameLast = true;
};

class NoteDraftTest : public testing::TestWithParam<Case> { };

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
    testing::Values(Case{ "WithoutABaseTheDraftStands", "A\n\nB", std::nullopt, "AX", "AX" },
        Case{ "NobodyElseWrote", "A", "A", "AX", "AX" },
        Case{ "BothWroteTheSame", "AX", "A", "AX", "AX" },
        Case{ "BothWroteTheSameOnAnotherBase", "AX", "Z", "AX", "AX" },
        Case{ "ATranscriptWasAppended", "A\n\nB", "A", "AX", "AX\n\nB" },
        Case{ "ATranscriptCameIntoAnEmptyNote", "B", "", "X", "XB" },
        Case{ "TheBodyNoLongerBeginsWithTheBase", "Z\n\nB", "A", "AX",
            std::string("AX") + marker + "Z\n\nB" },
        Case{
            "TheCaseOfTheBaseDiffers", "a\n\nB", "A", "AX", std::string("AX") + marker + "a\n\nB" },
        Case{ "TheBodyIsShorterThanTheBase", "A", "AB", "AX", std::string("AX") + marker + "A" },
        Case{ "AUsersOwnLaterEditIsOverwritten", "A\n\nB", "A", "AX", "AX", false },
        Case{ "AUsersOwnLaterEditElsewhereIsOverwritten", "Z\n\nB", "A", "AX", "AX", false },
        Case{ "TheBaseIsEncodedDifferently", "caf\u00e9\n\nB", "cafe\u0301", "X", "X\n\nB" },
        Case{ "TheBodyIsTheBaseEncodedDifferently", "caf\u00e9", "cafe\u0301", "X", "X" },
        Case{ "TheBodyIsTheDraftEncodedDifferently", "caf\u00e9", "A", "cafe\u0301", "cafe\u0301" },
        Case{ "TheBaseEndsWithinACharacter", "e\u0301\n\nB", "e", "X",
            std::string("X") + marker + "e\u0301\n\nB" },
        Case{ "TheBaseEndsWithinALineEnd", "A\r\nB", "A\r", "X",
            std::string("X") + marker + "A\r\nB" },
        Case{ "CharactersOfManyBytes", "👩‍👩‍👧 한국\n\nB",
            "👩‍👩‍👧 한국", "👍🏽", "👍🏽\n\nB" }),
    [](const auto& info) { return info.param.name; });

} // namespace
} // namespace vesko
