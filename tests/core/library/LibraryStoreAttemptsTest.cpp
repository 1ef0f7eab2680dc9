#include "tests/core/library/LibraryFixture.h"

namespace vesko {
namespace {

using namespace std::chrono_literals;

TranscriptResult result(const std::string& text)
{
    return { "raw " + text, text, 0.25, "gen-1", std::nullopt };
}

class LibraryStoreAttemptsTest : public LibraryFixture {
protected:
    // A note of this body with one recording whose audio is saved.
    void given(const std::string& body)
    {
        const auto recorded = recordingWith(RecordingStatus::recorded);
        recordingID = recorded.id;
        putNote(recorded, [&](Note& note) { note.body = body; });
        open();
    }
    void given(const Recording& recording)
    {
        recordingID = recording.id;
        putNote(recording);
        open();
    }
    void open()
    {
        store.reset();
        store.emplace(root, clock);
        clock.turn(1min);
    }
    // What another part of the program does to the document meanwhile.
    template <class Change>
    void changeNote(Change change)
    {
        Library library = store->snapshot();
        library.notes.edit(0, change);
        put(library);
        open();
    }
    TranscriptionAttempt begin()
    {
        clock.turn(1min);
        return store->beginAttempt(recordingID, "OpenRouter", "whisper", std::nullopt);
    }
    TranscriptionAttempt complete(const std::string& text)
    {
        const auto attempt = begin();
        clock.turn(1min);
        store->completeAttempt(recordingID, attempt.id, result(text));
        return recording().attempts.back();
    }

    const Note& note() const { return store->snapshot().notes[0]; }
    const Recording& recording() const { return note().recordings[0]; }

    std::optional<LibraryStore> store;
    Uuid recordingID;
};

TEST_F(LibraryStoreAttemptsTest, BeginAttemptAppendsARunningOne)
{
    auto recorded = recordingWith(RecordingStatus::failed, { AttemptStatus::failed });
    recorded.errorMessage = "earlier";
    given(recorded);
    const auto updatedAt = note().updatedAt;
    clock.turn(1min);
    const auto attempt = store->beginAttempt(recordingID, "OpenRouter", "whisper", "cleaner");

    TranscriptionAttempt expected;
    expected.id = attempt.id;
    expected.provider = "OpenRouter";
    expected.model = "whisper";
    expected.cleanupModel = "cleaner";
    expected.startedAt = clock.now();
    EXPECT_EQ(attempt, expected);
    EXPECT_EQ(recording().attempts.size(), 2U);
    EXPECT_EQ(recording().attempts.back(), attempt);
    EXPECT_EQ(recording().status, RecordingStatus::transcribing);
    EXPECT_EQ(recording().errorMessage, std::nullopt);
    EXPECT_EQ(note().updatedAt, updatedAt);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreAttemptsTest, BeginAttemptTakesARecordingInAnyStatusButTranscribing)
{
    using enum RecordingStatus;
    for (const auto status : { recorded, ready, failed, interrupted }) {
        SCOPED_TRACE(label(status));
        given(recordingWith(status));
        EXPECT_EQ(begin().status, AttemptStatus::running);
        expectRefused(*store, VeskoError::libraryBusy, [&] { begin(); });
    }
    given("");
    const auto capture = store->beginRecording(note().id);
    EXPECT_NO_THROW(store->beginAttempt(capture.id, "", "", std::nullopt));
}

TEST_F(LibraryStoreAttemptsTest, BeginAttemptTakesNoNoteInTheTrashAndNoUnknownRecording)
{
    given("");
    expectRefused(*store, VeskoError::notFound,
        [&] { store->beginAttempt(Uuid::random(), "", "", std::nullopt); });
    changeNote([](Note& note) { note.deletedAt = note.createdAt; });
    expectRefused(*store, VeskoError::libraryBusy, [&] { begin(); });
}

TEST_F(LibraryStoreAttemptsTest, CompleteAttemptNamesWhoDidItIfThatWasNotKnownBefore)
{
    given("");
    auto first = result("Hallo."), second = result("Hallo.");
    first.model = "whisper.cpp/base";
    first.language = "de";
    store->completeAttempt(recordingID, begin().id, first);
    const auto before = begin().model;
    store->completeAttempt(recordingID, recording().attempts.back().id, second);
    EXPECT_EQ(recording().attempts[0].model, "whisper.cpp/base");
    EXPECT_EQ(recording().attempts[0].detectedLanguage, "de");
    EXPECT_EQ(recording().attempts[1].model, before);
    EXPECT_EQ(recording().attempts[1].detectedLanguage, std::nullopt);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreAttemptsTest, CompleteAttemptFillsTheAttemptAndAppendsToTheNote)
{
    given("");
    const auto attempt = begin();
    clock.turn(1min);
    auto transcript = result("  Hello.\n");
    transcript.warning = "The text was not cleaned up.";
    store->completeAttempt(recordingID, attempt.id, transcript);

    auto expected = attempt;
    expected.rawText = "raw   Hello.\n";
    expected.text = "  Hello.\n";
    expected.cost = 0.25;
    expected.requestID = "gen-1";
    expected.errorMessage = "The text was not cleaned up.";
    expected.status = AttemptStatus::ready;
    expected.completedAt = clock.now();
    EXPECT_EQ(recording().attempts, std::vector{ expected });
    EXPECT_EQ(recording().status, RecordingStatus::ready);
    EXPECT_TRUE(recording().appendedToNote);
    EXPECT_EQ(note().body, "  Hello.\n");
    EXPECT_EQ(note().title, "");
    EXPECT_EQ(note().updatedAt, clock.now());
    EXPECT_EQ(recording().appliedBodyRevision, note().updatedAt);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreAttemptsTest, ATranscriptIsPartedFromWhatStandsInTheNote)
{
    const std::pair<std::string, std::string> table[] = {
        { "", "Hello." },
        { " ", " \n\nHello." },
        { "Before", "Before\n\nHello." },
        { "Before\n\n", "Before\n\n\n\nHello." },
    };
    for (const auto& [body, expected] : table) {
        given(body);
        complete("Hello.");
        EXPECT_EQ(note().body, expected);
    }
}

TEST_F(LibraryStoreAttemptsTest, BlankTextIsNoTranscriptAndIsLookedAtFirst)
{
    given("Before");
    const auto attempt = begin();
    for (const auto& [raw, text] :
        std::initializer_list<std::pair<std::string, std::string>>{ { "", "text" }, { "raw", "" },
            { "raw", " \n\t\u00a0\u2028" }, { "\r\n", "text" }, { "", "" } }) {
        expectRefused(*store, VeskoError::emptyTranscript,
            [&] { store->completeAttempt(recordingID, attempt.id, { raw, text, {}, {}, {} }); });
        expectRefused(*store, VeskoError::emptyTranscript,
            [&] { store->completeAttempt(Uuid::random(), attempt.id, { raw, text, {}, {}, {} }); });
    }
    EXPECT_EQ(recording().attempts[0].status, AttemptStatus::running);
}

TEST_F(LibraryStoreAttemptsTest, OnlyARunningAttemptIsCompleted)
{
    given("");
    const auto attempt = complete("Hello.");
    expectRefused(*store, VeskoError::notFound,
        [&] { store->completeAttempt(recordingID, attempt.id, result("again")); });
    expectRefused(*store, VeskoError::notFound,
        [&] { store->completeAttempt(recordingID, Uuid::random(), result("x")); });
    expectRefused(*store, VeskoError::notFound,
        [&] { store->completeAttempt(Uuid::random(), attempt.id, result("x")); });
    for (const auto status : { AttemptStatus::failed, AttemptStatus::interrupted }) {
        const auto stopped = recordingWith(RecordingStatus::failed, { status });
        given(stopped);
        expectRefused(*store, VeskoError::notFound,
            [&] { store->completeAttempt(recordingID, stopped.attempts[0].id, result("x")); });
    }
}

TEST_F(LibraryStoreAttemptsTest, ARetryChangesNeitherBodyNorDate)
{
    given("Before");
    complete("First.");
    const auto body = note().body;
    const auto updatedAt = note().updatedAt;
    const auto revision = recording().appliedBodyRevision;
    complete("Second.");
    EXPECT_EQ(note().body, body);
    EXPECT_EQ(note().updatedAt, updatedAt);
    EXPECT_EQ(recording().appliedBodyRevision, revision);
    EXPECT_EQ(recording().latestText(), "Second.");
    EXPECT_EQ(recording().status, RecordingStatus::ready);
}

TEST_F(LibraryStoreAttemptsTest, ACompletionClearsNoErrorMessageOfTheRecording)
{
    given("");
    const auto attempt = begin();
    changeNote([](Note& note) {
        note.recordings[0].errorMessage = "kept";
        // As it stands on disk, the running attempt would be repaired away.
        note.recordings[0].status = RecordingStatus::ready;
        note.recordings[0].attempts.clear();
    });
    const auto second = begin();
    EXPECT_EQ(recording().errorMessage, std::nullopt);
    store->failRecording(recordingID, "kept");
    store->completeAttempt(recordingID, second.id, result("x"));
    EXPECT_EQ(recording().errorMessage, "kept");
}

TEST_F(LibraryStoreAttemptsTest, UpdateCleanupReplacesTheTailOfAnUntouchedNote)
{
    given("Before");
    const auto attempt = complete("um hello 😀");
    clock.turn(1min);
    store->updateCleanup(
        recordingID, attempt.id, { "ignored", "Hello!", 0.5, "ignored", "a warning" });

    auto expected = attempt;
    expected.text = "Hello!";
    expected.cost = 0.5;
    expected.errorMessage = "a warning";
    EXPECT_EQ(recording().attempts, std::vector{ expected });
    EXPECT_EQ(note().body, "Before\n\nHello!");
    EXPECT_EQ(note().updatedAt, clock.now());
    EXPECT_EQ(recording().appliedBodyRevision, clock.now());
    EXPECT_EQ(recording().status, RecordingStatus::ready);
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreAttemptsTest, UpdateCleanupMayRunTwiceAndGoThroughNothing)
{
    given("Before");
    const auto attempt = complete("one");
    for (const std::string text : { "two", "", "three" }) {
        clock.turn(1min);
        store->updateCleanup(recordingID, attempt.id, result(text));
        EXPECT_EQ(note().body, "Before\n\n" + text);
        EXPECT_EQ(note().updatedAt, clock.now());
    }
    store->updateCleanup(recordingID, attempt.id, { "", "four", {}, {}, {} });
    EXPECT_EQ(recording().attempts[0].cost, std::nullopt);
    EXPECT_EQ(recording().attempts[0].requestID, "gen-1");
    EXPECT_EQ(recording().attempts[0].rawText, "raw one");
}

TEST_F(LibraryStoreAttemptsTest, ATextThatNothingWasDoneToIsKeptOnce)
{
    given("");
    const auto attempt = begin();
    store->completeAttempt(recordingID, attempt.id, { "as heard", "as heard", {}, {}, {} });
    const auto expectOneText = [&] {
        const auto& heard = recording().attempts[0];
        EXPECT_EQ(note().body, "as heard");
        EXPECT_TRUE(note().body.sharedWith(*heard.text));
        EXPECT_TRUE(heard.rawText->sharedWith(*heard.text));
    };
    expectOneText();
    open();
    expectOneText();
}

TEST_F(LibraryStoreAttemptsTest, UpdateCleanupStillWorksAfterTheLibraryWasClosed)
{
    given("Before");
    const auto attempt = complete("one");
    open();
    store->updateCleanup(recordingID, attempt.id, result("two"));
    EXPECT_EQ(note().body, "Before\n\ntwo");
}

TEST_F(LibraryStoreAttemptsTest, TheUsersEditsWinOverACleanup)
{
    const std::pair<const char*, std::function<void(Note&)>> table[] = {
        { "an edited body",
            [&](Note& note) {
                note.body += " edited";
                note.updatedAt = clock.now();
            } },
        { "another project, which sets the date alone",
            [&](Note& note) { note.updatedAt = clock.now(); } },
        { "a body that ends otherwise under the same date", [&](Note& note) { note.body += "!"; } },
        { "a body that is shorter than the text", [&](Note& note) { note.body = "e"; } },
        { "a recording that was never applied",
            [&](Note& note) { note.recordings[0].appliedBodyRevision.reset(); } },
    };
    for (const auto& [name, change] : table) {
        SCOPED_TRACE(name);
        given("Before");
        const auto attempt = complete("one");
        clock.turn(1min);
        changeNote(change);
        const auto before = note();
        store->updateCleanup(recordingID, attempt.id, result("two"));
        EXPECT_EQ(note().body, before.body);
        EXPECT_EQ(note().updatedAt, before.updatedAt);
        EXPECT_EQ(recording().appliedBodyRevision, before.recordings[0].appliedBodyRevision);
        EXPECT_EQ(recording().attempts[0].text, "two");
    }
}

TEST_F(LibraryStoreAttemptsTest, ACleanupReachesANoteInTheTrash)
{
    given("Before");
    const auto attempt = complete("one");
    changeNote([](Note& note) { note.deletedAt = note.updatedAt; });
    store->updateCleanup(recordingID, attempt.id, result("two"));
    EXPECT_EQ(note().body, "Before\n\ntwo");
}

TEST_F(LibraryStoreAttemptsTest, OnlyAReadyAttemptWithATextIsCleanedUp)
{
    given("");
    const auto running = begin();
    expectRefused(*store, VeskoError::notFound,
        [&] { store->updateCleanup(recordingID, running.id, result("x")); });
    expectRefused(*store, VeskoError::notFound,
        [&] { store->updateCleanup(recordingID, Uuid::random(), result("x")); });
    expectRefused(*store, VeskoError::notFound,
        [&] { store->updateCleanup(Uuid::random(), running.id, result("x")); });
    for (const auto status : { AttemptStatus::ready, AttemptStatus::failed }) {
        auto stopped = recordingWith(RecordingStatus::ready, { status });
        // A ready one has no text, a failed one has.
        if (status == AttemptStatus::failed)
            stopped.attempts[0].text = "text";
        given(stopped);
        expectRefused(*store, VeskoError::notFound,
            [&] { store->updateCleanup(recordingID, stopped.attempts[0].id, result("x")); });
    }
}

TEST_F(LibraryStoreAttemptsTest, FailAttemptTakesAnAttemptInAnyStatus)
{
    given("Before");
    const auto attempt = begin();
    const auto before = note();
    for (int time = 0; time < 2; ++time) { // running, then failed already
        clock.turn(1min);
        store->failAttempt(recordingID, attempt.id, "No network.");
        auto expected = attempt;
        expected.status = AttemptStatus::failed;
        expected.completedAt = clock.now();
        expected.errorMessage = "No network.";
        EXPECT_EQ(recording().attempts, std::vector{ expected });
        EXPECT_EQ(recording().status, RecordingStatus::failed);
        EXPECT_EQ(recording().errorMessage, "No network.");
        EXPECT_EQ(note().body, before.body);
        EXPECT_EQ(note().updatedAt, before.updatedAt);
    }
    EXPECT_EQ(saved(), onDisk(store->snapshot()));
}

TEST_F(LibraryStoreAttemptsTest, AFailureAfterTheTranscriptKeepsItInTheNote)
{
    given("");
    const auto attempt = complete("Hello.");
    store->failAttempt(recordingID, attempt.id, "Too late.");
    EXPECT_EQ(note().body, "Hello.");
    EXPECT_EQ(recording().latestText(), "Hello.");
    EXPECT_EQ(recording().attempts[0].status, AttemptStatus::failed);
    EXPECT_EQ(recording().status, RecordingStatus::failed);
    expectRefused(*store, VeskoError::notFound,
        [&] { store->failAttempt(recordingID, Uuid::random(), "x"); });
    expectRefused(
        *store, VeskoError::notFound, [&] { store->failAttempt(Uuid::random(), attempt.id, "x"); });
}

} // namespace
} // namespace vesko
