// What a trigger does in each phase, up to a running capture.

#include "tests/app/capture/AppModelTest.h"
#include "tests/fakes/Files.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using TriggerTest = AppModelTest;

TEST_F(TriggerTest, TheControllerSaysThatItIsReady)
{
    open();
    EXPECT_EQ(model->message(), "Ready to capture");
    EXPECT_EQ(model->errorMessage(), "");
    EXPECT_EQ(model->phase(), Phase::idle);
    EXPECT_FALSE(model->pushToTalk());
    EXPECT_EQ(model->elapsed(), 0);
    EXPECT_EQ(model->level(), 0);
}

TEST_F(TriggerTest, ADictationGoesThroughEveryPhaseAndSaysSo)
{
    open();
    std::vector<std::string> said{ model->phaseTitle().toStdString() };
    QObject::connect(model.get(), &AppModel::phaseChanged,
        [&] { said.push_back(model->phaseTitle().toStdString()); });
    dictate();
    EXPECT_EQ(model->message(), "Recording. Press the shortcut again to finish.");
    machine.recognizer.hears.reset();
    model->toggleDictation();
    EXPECT_EQ(model->phase(), Phase::processing);
    EXPECT_EQ(model->message(), "Original saved. Transcribing…");
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
        EXPECT_EQ(model->phase(), Phase::idle);
        EXPECT_EQ(machine.recorder.accessRequests, 0);
    };
    model->toggleDictation();
    EXPECT_THAT(machine.focusedField.reads, ElementsAre(std::nullopt));
    EXPECT_EQ(model->phase(), Phase::preparing);
    EXPECT_EQ(machine.recorder.accessRequests, 1);
}

TEST_F(TriggerTest, ATriggerWhilePreparingIsDropped)
{
    open();
    machine.recorder.access.close();
    model->toggleDictation();
    const std::string message = model->message();
    model->toggleDictation();
    model->recordNote(false);
    EXPECT_EQ(model->phase(), Phase::preparing);
    EXPECT_EQ(model->message(), message);
    EXPECT_EQ(model->errorMessage(), "");
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);

    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    finish();
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
    EXPECT_EQ(model->phase(), Phase::idle);
}

TEST_F(TriggerTest, ATriggerWhileProcessingIsDropped)
{
    open();
    dictate();
    machine.recognizer.hears.reset();
    model->toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    const std::string message = model->message();
    model->toggleDictation();
    model->recordNote(false);
    EXPECT_EQ(model->phase(), Phase::processing);
    EXPECT_EQ(model->message(), message);
    EXPECT_EQ(model->errorMessage(), "");
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
    model->toggleDictation(); // nobody listens yet
    int shown = 0;
    model->onAccountNeeded = [&] { ++shown; };
    model->toggleDictation();
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(machine.focusedField.reads.empty());
    EXPECT_EQ(model->phase(), Phase::idle);
    EXPECT_EQ(model->errorMessage(), "");

    // A voice note belongs to the library window and asks for no account.
    model->recordNote(false);
    EXPECT_TRUE(reach(Phase::recording));
    EXPECT_EQ(shown, 1);
    model->toggleDictation(); // whatever runs can be ended
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
    model->toggleDictation();
    model->recordNote(false);
    model->handleFn(FnShortcutAction::begin);
    EXPECT_EQ(model->phase(), Phase::idle);
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    EXPECT_EQ(model->phase(), Phase::idle);
    EXPECT_EQ(model->errorMessage(), "");
    EXPECT_EQ(machine.recorder.accessRequests, 0);
    dictate();
    finish();
    EXPECT_EQ(onlyNote().kind, NoteKind::dictation);
}

TEST_F(TriggerTest, ALibraryThatAnotherProgramHasIsReportedAndTriggersAreDropped)
{
    const LibraryStore other(root(), machine.clock);
    start();
    ASSERT_TRUE(eventually([&] { return !model->errorMessage().empty(); }));
    EXPECT_EQ(model->errorMessage(),
        "Vesko is already using this library. Open the running app instead.");
    EXPECT_FALSE(model->libraryReady());
    model->toggleDictation();
    model->recordNote(true);
    EXPECT_EQ(model->phase(), Phase::idle);
    EXPECT_EQ(machine.recorder.accessRequests, 0);
    Recording stored;
    model->retry(stored, true);
    EXPECT_EQ(model->phase(), Phase::idle);
    model->play(stored);
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(TriggerTest, ADamagedLibraryIsReportedAndLeftAlone)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", R"({ "schemaVersion" : 1, "notes" : )");
    const std::string before = bytesOf(root() / "library.json");
    start();
    ASSERT_TRUE(eventually([&] { return !model->errorMessage().empty(); }));
    EXPECT_EQ(model->errorMessage(),
        "The library could not be read. Your files were preserved. Open the data folder to "
        "recover its backup.");
    EXPECT_FALSE(model->libraryReady());
    EXPECT_EQ(bytesOf(root() / "library.json"), before);
}

TEST(DataRoot, IsTheEnvironmentsIfThatIsAnAbsolutePath)
{
    const std::filesystem::path user = "/home/someone/.local/share";
    EXPECT_EQ(AppModel::dataRoot("/tmp/library", user), "/tmp/library");
    EXPECT_EQ(AppModel::dataRoot("library", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot("./library", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot("~/library", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot("", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot(nullptr, user), user / "Vesko");
}

TEST_F(TriggerTest, TheRecordingStandsInTheLibraryBeforeItsFileExists)
{
    open();
    machine.recorder.starting.close();
    model->toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    ASSERT_EQ(machine.recorder.files.size(), 1U);
    const auto file = machine.recorder.files.back();
    EXPECT_EQ(file.parent_path(), root() / "recordings");
    EXPECT_THAT(bytesOf(root() / "library.json"), HasSubstr(file.filename().string()));
    EXPECT_EQ(model->phase(), Phase::preparing);
}

TEST_F(TriggerTest, SoundIsTakenWhileTheLibraryMakesRoomForIt)
{
    open();
    model->toggleDictation();
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
    model->toggleDictation();
    EXPECT_FALSE(machine.recorder.running());
}

TEST_F(TriggerTest, TheLibraryShowsTheRunningRecording)
{
    open();
    dictate();
    ASSERT_TRUE(eventually([&] { return !model->library().notes.empty(); }));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::recording);
    machine.clock.turn(2.5);
    EXPECT_NEAR(model->elapsed(), 2.5, 1e-6);
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

TEST_F(TriggerTest, ADictationLeavesTheLibraryWindowAlone)
{
    open();
    model->setShowingTrash(true);
    model->setQuery("shopping");
    dictate();
    EXPECT_TRUE(model->showingTrash());
    EXPECT_EQ(model->query(), "shopping");
    EXPECT_EQ(model->selectedNoteID(), std::nullopt);
    finish();
    EXPECT_EQ(onlyNote().kind, NoteKind::dictation);
    EXPECT_EQ(onlyNote().body, "hello world");
}

TEST_F(TriggerTest, ANewVoiceNoteIsShownInTheLibraryWindow)
{
    open();
    model->setShowingTrash(true);
    model->setQuery("shopping");
    model->recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_FALSE(model->showingTrash());
    EXPECT_EQ(model->query(), "");
    ASSERT_TRUE(eventually([&] { return !model->library().notes.empty(); }));
    EXPECT_EQ(model->selectedNoteID(), onlyNote().id);
    EXPECT_EQ(onlyNote().kind, NoteKind::voice);
    EXPECT_TRUE(machine.focusedField.reads.empty());

    model->recordNote(false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

TEST_F(TriggerTest, AVoiceNoteContinuesTheSelectedNote)
{
    open();
    model->recordNote(true); // none is selected: a new one
    ASSERT_TRUE(reach(Phase::recording));
    model->recordNote(true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().kind, NoteKind::voice);

    model->setQuery("kept");
    machine.recognizer.hears = "and more";
    model->recordNote(true);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_EQ(model->query(), "kept");
    model->recordNote(true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().recordings.size(), 2U);
    EXPECT_EQ(onlyNote().body, "hello world\n\nand more");

    model->recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    model->recordNote(false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->library().notes.size(), 2U);
}

TEST_F(TriggerTest, ANewCaptureClearsTheErrorOfAnEarlierOne)
{
    open();
    machine.recorder.grantsAccess = false;
    model->toggleDictation();
    ASSERT_NE(model->errorMessage(), "");
    machine.recorder.grantsAccess = true;
    machine.recorder.access.close();
    model->toggleDictation();
    EXPECT_EQ(model->errorMessage(), "");
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(TriggerTest, TheSettingsOfACaptureAreThoseOfItsStart)
{
    open();
    machine.recorder.access.close();
    model->toggleDictation();
    model->preferences().language.set("de-DE"); // while the user is being asked
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    model->preferences().provider.set("openrouter"); // while recording
    model->preferences().pasteEnabled.set(false);
    model->toggleDictation();
    model->preferences().keySource.set("personal"); // while transcribing
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyAttempt().provider, "Apple on-device");
    EXPECT_EQ(onlyAttempt().model, "apple/on-device/auto");
    EXPECT_EQ(machine.pasteKeystroke.sent, 1);
}

TEST_F(TriggerTest, TheSettingsOfACaptureSayWhatThePreferencesSay)
{
    choose("sttModel", std::string("vendor/speech"));
    choose("cleanupEnabled", true);
    choose("cleanupModel", std::string("vendor/text"));
    choose("translateTo", std::string("fr"));
    choose("pasteEnabled", false);
    choose("allowCloudProcessing", false);
    open();
    auto settings = model->settings();
    EXPECT_EQ(settings.provider, "apple");
    EXPECT_EQ(settings.keySource, "vesko");
    EXPECT_EQ(settings.model, "vendor/speech");
    EXPECT_EQ(settings.language, "auto");
    EXPECT_TRUE(settings.cleanup);
    EXPECT_EQ(settings.cleanupModel, "vendor/text");
    EXPECT_FALSE(settings.paste);
    EXPECT_EQ(settings.translateTo, "fr");
    EXPECT_TRUE(settings.cloudAllowed); // whatever is stored

    model->preferences().translateTo.set("off");
    EXPECT_EQ(model->settings().translateTo, std::nullopt);
}

} // namespace

} // namespace vesko
