// What a trigger does in each phase, up to a running capture.

#include "tests/app/AppModelTest.h"
#include "tests/fakes/Files.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using TriggerTest = AppModelTest;

TEST_F(TriggerTest, TheControllerSaysThatItIsReady)
{
    open();
    EXPECT_EQ(model->status().message(), "Ready to capture");
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(model->capture().pushToTalk());
    EXPECT_EQ(model->capture().elapsed(), 0);
    EXPECT_EQ(model->capture().level(), 0);
}

TEST_F(TriggerTest, ADictationGoesThroughEveryPhaseAndSaysSo)
{
    open();
    std::vector<std::string> said{ model->capture().phaseTitle().toStdString() };
    QObject::connect(&model->capture(), &Capture::phaseChanged,
        [&] { said.push_back(model->capture().phaseTitle().toStdString()); });
    dictate();
    EXPECT_EQ(model->status().message(), "Recording. Press the shortcut again to finish.");
    machine.recognizer.hears.reset();
    model->capture().toggleDictation();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->status().message(), "Original saved. Transcribing…");
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    machine.recognizer.report({ .text = "hello world", .isFinal = true });
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(
        said, ElementsAre("Ready", "Starting microphone", "Recording", "Transcribing", "Ready"));
}

TEST_F(TriggerTest, TheFieldIsSettledBeforeAnythingElseAndBeforeTheTriggerReturns)
{
    open();
    machine.recorder.access.close();
    machine.focusedField.onRead = [&] {
        EXPECT_EQ(model->capture().phase(), Phase::idle);
        EXPECT_EQ(machine.recorder.accessRequests, 0);
    };
    model->capture().toggleDictation();
    EXPECT_THAT(machine.focusedField.reads, ElementsAre(std::nullopt));
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    EXPECT_EQ(machine.recorder.accessRequests, 1);
}

TEST_F(TriggerTest, ATriggerWhilePreparingIsDropped)
{
    open();
    machine.recorder.access.close();
    model->capture().toggleDictation();
    const std::string message = model->status().message();
    model->capture().toggleDictation();
    model->capture().recordNote(false);
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    EXPECT_EQ(model->status().message(), message);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);

    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    finish();
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

TEST_F(TriggerTest, ATriggerWhileProcessingIsDropped)
{
    open();
    dictate();
    machine.recognizer.hears.reset();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    const std::string message = model->status().message();
    model->capture().toggleDictation();
    model->capture().recordNote(false);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->status().message(), message);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);

    machine.recognizer.report({ .text = "hello", .isFinal = true });
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
    EXPECT_EQ(machine.recorder.files.size(), 1U);
}

TEST_F(TriggerTest, ATriggerOfWhoHasToSignInFirstShowsWhere)
{
    accounts.required = true;
    open();
    model->capture().toggleDictation(); // nobody listens yet
    int shown = 0;
    model->capture().onAccountNeeded = [&] { ++shown; };
    model->capture().toggleDictation();
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(machine.focusedField.reads.empty());
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(model->status().errorMessage(), "");

    // A voice note belongs to the library window and asks for no account.
    model->capture().recordNote(false);
    EXPECT_TRUE(reach(Phase::recording));
    EXPECT_EQ(shown, 1);
    model->capture().toggleDictation(); // whatever runs can be ended
    EXPECT_TRUE(reach(Phase::idle));
    EXPECT_EQ(shown, 1);
}

TEST_F(TriggerTest, TheSecretStoreIsLeftAloneAtALaunchWithoutAnAccount)
{
    open();
    EXPECT_EQ(machine.secrets.loads(), 0);
    EXPECT_TRUE(model->accounts().signedOut());
}

TEST_F(TriggerTest, ATriggerBeforeTheLibraryIsReadyIsDropped)
{
    start();
    model->capture().toggleDictation();
    model->capture().recordNote(false);
    model->capture().handleFn(FnShortcutAction::begin);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(machine.recorder.accessRequests, 0);
    dictate();
    finish();
    EXPECT_EQ(onlyNote().kind, NoteKind::dictation);
}

TEST_F(TriggerTest, ALibraryThatAnotherProgramHasIsReportedAndTriggersAreDropped)
{
    const LibraryStore other(root(), machine.clock);
    start();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(model->status().errorMessage(),
        "Vesko is already using this library. Open the running app instead.");
    EXPECT_FALSE(model->library().ready());
    model->capture().toggleDictation();
    model->capture().recordNote(true);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(machine.recorder.accessRequests, 0);
    Recording stored;
    model->run().retry(stored, true);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    model->playback().play(stored);
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(TriggerTest, ADamagedLibraryIsReportedAndLeftAlone)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", R"({ "schemaVersion" : 1, "notes" : )");
    const std::string before = bytesOf(root() / "library.json");
    start();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(model->status().errorMessage(),
        "The library could not be read. Your files were preserved. Open the data folder to "
        "recover its backup.");
    EXPECT_FALSE(model->library().ready());
    EXPECT_EQ(bytesOf(root() / "library.json"), before);
}

TEST_F(TriggerTest, TheRecordingStandsInTheLibraryBeforeItsFileExists)
{
    open();
    machine.recorder.starting.close();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    ASSERT_EQ(machine.recorder.files.size(), 1U);
    const auto file = machine.recorder.files.back();
    EXPECT_EQ(file.parent_path(), root() / "recordings");
    EXPECT_THAT(bytesOf(root() / "library.json"), HasSubstr(file.filename().string()));
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
}

TEST_F(TriggerTest, SoundIsTakenWhileTheLibraryMakesRoomForIt)
{
    open();
    model->capture().toggleDictation();
    EXPECT_TRUE(machine.recorder.running()); // nothing has been saved yet
    EXPECT_TRUE(machine.recorder.files.empty());
    machine.clock.turn(0.5);
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(1);
    finish();
    EXPECT_NEAR(onlyRecording().duration, 1.5, 1e-6);
}

TEST_F(TriggerTest, NoSoundIsTakenBeforeTheUserHasAllowedIt)
{
    open();
    machine.recorder.access.close();
    model->capture().toggleDictation();
    EXPECT_FALSE(machine.recorder.running());
}

TEST_F(TriggerTest, TheLibraryShowsTheRunningRecording)
{
    open();
    dictate();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::recording);
    machine.clock.turn(2.5);
    EXPECT_NEAR(model->capture().elapsed(), 2.5, 1e-6);
    finish();
    EXPECT_NEAR(onlyRecording().duration, 2.5, 1e-6);
    EXPECT_EQ(bytesOf(audioFile()), "recorded sound");
}

TEST_F(TriggerTest, AFractionOfASecondIsKeptAsAnyOther)
{
    open();
    dictate();
    machine.clock.turn(0.04);
    finish();
    EXPECT_NEAR(onlyRecording().duration, 0.04, 1e-6);
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

TEST_F(TriggerTest, WhatWasUnderWayAtTheStopCountsToo)
{
    open();
    machine.recorder.underWay = 0.7;
    dictate();
    machine.clock.turn(2);
    finish();
    EXPECT_NEAR(onlyRecording().duration, 2.7, 1e-6);
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

TEST_F(TriggerTest, ADictationLeavesTheLibraryWindowAlone)
{
    open();
    model->selection().setShowingTrash(true);
    model->selection().setQuery("shopping");
    dictate();
    EXPECT_TRUE(model->selection().showingTrash());
    EXPECT_EQ(model->selection().query(), "shopping");
    EXPECT_EQ(model->selection().selectedNoteID(), std::nullopt);
    finish();
    EXPECT_EQ(onlyNote().kind, NoteKind::dictation);
    EXPECT_EQ(onlyNote().body, "hello world");
}

TEST_F(TriggerTest, ANewVoiceNoteIsShownInTheLibraryWindow)
{
    open();
    model->selection().setShowingTrash(true);
    model->selection().setQuery("shopping");
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_FALSE(model->selection().showingTrash());
    EXPECT_EQ(model->selection().query(), "");
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_EQ(model->selection().selectedNoteID(), onlyNote().id);
    EXPECT_EQ(onlyNote().kind, NoteKind::voice);
    EXPECT_TRUE(machine.focusedField.reads.empty());

    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

TEST_F(TriggerTest, AVoiceNoteContinuesTheSelectedNote)
{
    open();
    model->capture().recordNote(true); // none is selected: a new one
    ASSERT_TRUE(reach(Phase::recording));
    model->capture().recordNote(true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().kind, NoteKind::voice);

    model->selection().setQuery("kept");
    machine.recognizer.hears = "and more";
    model->capture().recordNote(true);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_EQ(model->selection().query(), "kept");
    model->capture().recordNote(true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().recordings.size(), 2U);
    EXPECT_EQ(onlyNote().body, "hello world\n\nand more");

    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->library().contents().notes.size(), 2U);
}

TEST_F(TriggerTest, ANewCaptureClearsTheErrorOfAnEarlierOne)
{
    open();
    machine.recorder.grantsAccess = false;
    model->capture().toggleDictation();
    ASSERT_NE(model->status().errorMessage(), "");
    machine.recorder.grantsAccess = true;
    machine.recorder.access.close();
    model->capture().toggleDictation();
    EXPECT_EQ(model->status().errorMessage(), "");
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(TriggerTest, WhereTheWordsWillGoIsSaidWhileTheyAreSpoken)
{
    const struct {
        const char* what;
        std::optional<std::string> program;
        bool hasField;
        bool paste;
        const char* said;
    } cases[] = {
        { "a field of a program", "mousepad", true, true, "Into Mousepad" },
        { "a program without a name", std::nullopt, true, true, "Into the field where you began" },
        { "a program with a name of many lines", " two\nlines ", true, true, "Into Two lines" },
        { "no field", "mousepad", false, true, "To the clipboard" },
        { "no paste", "mousepad", true, false, "To the clipboard" },
    };
    open();
    const auto field = machine.focusedField.reading;
    for (const auto& [what, program, hasField, paste, said] : cases) {
        SCOPED_TRACE(what);
        machine.focusedField.reading = field;
        machine.focusedField.reading.program = program;
        if (!hasField)
            machine.focusedField.reading.element = nullptr;
        model->preferences().pasteEnabled.set(paste);
        dictate();
        EXPECT_EQ(model->capture().target().toStdString(), said);
        finish();
        EXPECT_EQ(model->capture().target(), QString());
    }
}

} // namespace

} // namespace vesko
