// From a stored recording to a stored text, with speech recognised on this machine.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

constexpr const char* needsAttention = "Audio saved. Transcription needs attention.";

class TranscriptionRunTest : public AppModelTest {
protected:
    // A capture whose recognition is left waiting for a report.
    void dictateUntilRecognition()
    {
        machine.recognizer.hears.reset();
        dictate();
        model->capture().toggleDictation();
        ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    }
    void hear(const char* text) { machine.recognizer.report({ .text = text, .isFinal = true }); }
    void expectFailedRun(const std::string& text)
    {
        EXPECT_EQ(model->status().errorMessage(), text);
        EXPECT_EQ(model->status().message(), needsAttention);
        EXPECT_EQ(machine.clipboard.text, std::nullopt);
        EXPECT_EQ(machine.pasteKeystroke.sent, 0);
        EXPECT_TRUE(std::filesystem::exists(audioFile()));
    }
};

TEST_F(TranscriptionRunTest, TheTranscriptStandsInTheNoteAndInItsAttempt)
{
    choose("language", std::string("en-US"));
    open();
    machine.recognizer.hears = "  Good morning.\n";
    dictate();
    finish();
    EXPECT_EQ(onlyNote().body, "Good morning.");
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::ready);
    EXPECT_EQ(onlyAttempt().provider, "Apple on-device");
    EXPECT_EQ(onlyAttempt().model, "pocketsphinx");
    EXPECT_EQ(onlyAttempt().cleanupModel, std::nullopt);
    EXPECT_EQ(onlyAttempt().rawText, "Good morning.");
    EXPECT_EQ(onlyAttempt().text, "Good morning.");
    EXPECT_EQ(onlyAttempt().errorMessage, std::nullopt);
    EXPECT_THAT(machine.recognizer.audio, testing::ElementsAre(audioFile()));
}

TEST_F(TranscriptionRunTest, AFailedAttemptNamesTheEngineThatWasAsked)
{
    choose("engine", std::string("whisper.cpp/base"));
    machine.speechEngines.found.push_back({ .id = "whisper.cpp/base", .name = "whisper.cpp" });
    open();
    machine.recognizer.hears = std::nullopt;
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    machine.recognizer.report({ .failed = true });
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::failed);
    EXPECT_EQ(onlyAttempt().model, "whisper.cpp/base");
}

TEST_F(TranscriptionRunTest, TheAttemptNamesTheEngineThatDidItAndTheLanguageThatItFound)
{
    open();
    machine.recognizer.extra = { .model = "whisper.cpp/base", .language = "ru" };
    dictate();
    finish();
    EXPECT_EQ(onlyAttempt().model, "whisper.cpp/base");
    EXPECT_EQ(onlyAttempt().detectedLanguage, "ru");
    EXPECT_EQ(onlyAttempt().modelInWords(), "whisper.cpp, base");
}

TEST_F(TranscriptionRunTest, AnEngineThatIsGoneIsReplacedByNoOther)
{
    choose("engine", std::string("whisper.cpp/base"));
    open();
    dictate();
    finish();
    expectFailedRun("The speech engine that you chose isn't there. Choose one in Settings. Your "
                    "audio is saved.");
    EXPECT_TRUE(machine.recognizer.audio.empty());
}

TEST_F(TranscriptionRunTest, TheAttemptNamesTheModelOfTheStepsThatFollow)
{
    struct Case {
        const char* name;
        bool cleanup;
        const char* translateTo;
        std::optional<std::string> model;
    };
    const std::vector<Case> cases{
        { "neither", false, "off", std::nullopt },
        { "cleanup", true, "off", "vendor/text" },
        { "translation", false, "fr", "vendor/text" },
    };
    choose("cleanupModel", std::string("vendor/text"));
    open();
    for (const auto& [name, cleanup, translateTo, expected] : cases) {
        SCOPED_TRACE(name);
        model->preferences().cleanupEnabled.set(cleanup);
        model->preferences().translateTo.set(translateTo);
        dictate();
        finish();
        const auto& attempt
            = model->library().contents().notes.back().recordings.back().attempts.back();
        EXPECT_EQ(attempt.cleanupModel, expected);
    }
}

TEST_F(TranscriptionRunTest, TheLibraryShowsTheRunningAttempt)
{
    open();
    dictateUntilRecognition();
    EXPECT_EQ(onlyRecording().status, RecordingStatus::transcribing);
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::running);
    hear("done");
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::ready);
}

TEST_F(TranscriptionRunTest, ARecognitionThatFailsIsAFailedAttempt)
{
    using Break = void (*)(FakePlatform&);
    struct Case {
        const char* name;
        Break arrange;
        const char* text;
    };
    const std::vector<Case> cases{
        { "speech recognition is not allowed", [](auto& m) { m.recognizer.isAuthorized = false; },
            "Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter." },
        { "the language has no model", [](auto& m) { m.recognizer.installed.clear(); },
            "On-device speech is unavailable for this language. Choose another language or "
            "OpenRouter. Your audio is saved." },
        { "the recogniser is away", [](auto& m) { m.recognizer.isAvailable = false; },
            "On-device speech is not available right now. Your audio is saved. Try again or "
            "choose OpenRouter." },
        { "nothing was said", [](auto& m) { m.recognizer.hears = " \n\t "; },
            "No speech was heard. The recording is saved." },
    };
    for (const auto& [name, arrange, text] : cases) {
        SCOPED_TRACE(name);
        model.reset();
        std::filesystem::remove_all(root());
        machine.recognizer.isAuthorized = machine.recognizer.isAvailable = true;
        machine.recognizer.installed = { "en-US" };
        open();
        arrange(machine);
        dictate();
        finish();
        expectFailedRun(text);
        EXPECT_EQ(onlyAttempt().status, AttemptStatus::failed);
        EXPECT_EQ(onlyAttempt().errorMessage, text);
        EXPECT_EQ(onlyRecording().status, RecordingStatus::failed);
        EXPECT_EQ(onlyRecording().errorMessage, text);
        EXPECT_EQ(onlyNote().body, "");
    }
}

TEST_F(TranscriptionRunTest, ARecogniserThatNeverAnswersIsGivenUpAfterAWhile)
{
    open();
    dictateUntilRecognition();
    machine.clock.turn(64.9);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    machine.clock.turn(0.1);
    EXPECT_FALSE(machine.recognizer.running());
    ASSERT_TRUE(reach(Phase::idle));
    expectFailedRun("On-device transcription timed out. Your audio is saved.");
}

TEST_F(TranscriptionRunTest, AnAttemptThatCannotBeBegunFailsTheRun)
{
    open();
    dictate();
    finish();
    machine.clipboard.text.reset();
    machine.pasteKeystroke.sent = 0;
    const auto before = onlyRecording();
    breakStore();
    model->run().retry(before, true);
    ASSERT_TRUE(reach(Phase::idle));
    expectFailedRun(storageText);
    EXPECT_EQ(onlyRecording(), before);
}

TEST_F(TranscriptionRunTest, ATranscriptThatCannotBeStoredFailsTheRun)
{
    open();
    dictateUntilRecognition();
    breakStore();
    hear("lost words");
    ASSERT_TRUE(reach(Phase::idle));
    expectFailedRun(storageText);
    EXPECT_EQ(onlyNote().body, "");

    // The words can be had again from the audio.
    repairStore();
    model.reset();
    machine.recognizer.hears = "found again";
    open();
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::interrupted);
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().body, "found again");
    EXPECT_EQ(machine.clipboard.text, "found again");
}

TEST_F(TranscriptionRunTest, AudioThatIsALinkIsRefused)
{
    open();
    dictate();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    std::filesystem::remove(audioFile());
    std::filesystem::create_symlink("/etc/passwd", audioFile());
    finish();
    EXPECT_EQ(model->status().errorMessage(),
        "The recording path is invalid. The library was preserved.");
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::failed);
    EXPECT_TRUE(machine.recognizer.audio.empty());
}

TEST_F(TranscriptionRunTest, AFailureLeavesTheNextDictationAlone)
{
    open();
    machine.recognizer.hears = "";
    dictate();
    finish();
    ASSERT_NE(model->status().errorMessage(), "");
    machine.recognizer.hears = "second try";
    dictate();
    EXPECT_EQ(model->status().errorMessage(), "");
    finish();
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(model->status().message(), "Copied. Paste sent to the original field.");
    EXPECT_EQ(model->library().contents().notes.back().body, "second try");
}

TEST_F(TranscriptionRunTest, ARetryAddsAnAttemptWithTheSettingsOfToday)
{
    open();
    machine.recognizer.hears = "";
    dictate();
    finish();
    const auto failed = onlyAttempt();

    model->preferences().language.set("en-US");
    machine.recognizer.hears = "heard now";
    model->run().retry(onlyRecording(), false);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(model->status().message(), "Original saved. Transcribing…");
    ASSERT_TRUE(reach(Phase::idle));
    ASSERT_EQ(onlyRecording().attempts.size(), 2U);
    EXPECT_EQ(onlyRecording().attempts[0], failed);
    EXPECT_EQ(onlyRecording().attempts[1].text, "heard now");
    EXPECT_EQ(onlyRecording().attempts[1].model, "pocketsphinx");
    EXPECT_EQ(onlyNote().body, "heard now");
    EXPECT_EQ(model->status().message(), "Saved to your note");
    EXPECT_EQ(machine.clipboard.text, std::nullopt);
}

TEST_F(TranscriptionRunTest, ARetryCanCopyButNeverPaste)
{
    open();
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    finish();
    machine.recognizer.hears = "again";
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(machine.clipboard.text, "again");
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_EQ(model->status().message(),
        "Copied. No text field was focused when you started. Paste it with Command V.");

    model->preferences().pasteEnabled.set(false);
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().message(), "Copied. Paste it when you are ready.");
}

TEST_F(TranscriptionRunTest, ARetryWhileAnotherRunIsInProgressIsDropped)
{
    open();
    dictateUntilRecognition();
    const auto recording = onlyRecording();
    model->run().retry(recording, true);
    hear("once");
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().attempts.size(), 1U);

    dictate();
    model->run().retry(recording, true);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
}

TEST_F(TranscriptionRunTest, ARetryOfARecordingThatIsGoneSaysSo)
{
    open();
    auto unknown = Recording::make(Uuid::random(), Uuid::random(), machine.clock.now());
    model->run().retry(unknown, true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), "This item is no longer available.");
    EXPECT_EQ(model->status().message(), needsAttention);
}

TEST_F(TranscriptionRunTest, ATranscriptionThatIsCancelledKeepsTheRecordingAndPastesNothing)
{
    open();
    EXPECT_FALSE(model->capture().cancel()) << "there is nothing yet";
    dictateUntilRecognition();
    EXPECT_TRUE(model->capture().canGiveUp());
    EXPECT_TRUE(model->capture().cancel());
    EXPECT_FALSE(model->capture().canGiveUp());
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_FALSE(machine.recognizer.running());
    EXPECT_EQ(model->status().message(), "Transcription cancelled. The recording is saved.");
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::failed);
    EXPECT_EQ(onlyAttempt().errorMessage, "Transcription cancelled. The recording is saved.");
    EXPECT_EQ(onlyRecording().status, RecordingStatus::failed);
    EXPECT_EQ(machine.clipboard.text, std::nullopt);
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_TRUE(std::filesystem::exists(audioFile()));
    EXPECT_FALSE(model->capture().cancel()) << "there is nothing any more";

    machine.recognizer.hears = "now";
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().body, "now");
}

TEST_F(TranscriptionRunTest, ACancelThatComesWithTheTranscriptNeverLosesIt)
{
    open();
    dictateUntilRecognition();
    hear("it came");
    model->capture().cancel();
    ASSERT_TRUE(reach(Phase::idle));
    const bool kept = onlyAttempt().status == AttemptStatus::ready;
    EXPECT_EQ(onlyNote().body, kept ? "it came" : "");
    EXPECT_NE(onlyAttempt().status, AttemptStatus::running);
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
}

// The lines that the log took while the test ran.
std::vector<std::string>& logged()
{
    static std::vector<std::string> lines;
    return lines;
}

TEST_F(TranscriptionRunTest, TheLogTellsTheEventsAndNeverTheWords)
{
    logged().clear();
    const auto earlier = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            logged().push_back(std::string(context.category) + " " + std::to_string(type) + " "
                + text.toStdString());
        });
    machine.focusedField.reading.value = "Dear diary";
    machine.recognizer.hears = "my secret";
    open();
    dictate();
    machine.focusedField.reading.value = "Dear diary, today";
    machine.focusedField.reading.selection = TextRange{ 17, 0 };
    finish();
    machine.recognizer.hears = "";
    dictate();
    finish();
    machine.recognizer.hears = "another secret";
    machine.focusedField.reading.role.reset();
    dictate();
    machine.focusedField.reading.frontmost = 99;
    finish();
    machine.focusedField.reading.trusted = false;
    dictate();
    finish();
    qInstallMessageHandler(earlier);
    const std::string info = std::to_string(QtInfoMsg);
    const std::string error = std::to_string(QtCriticalMsg);
    EXPECT_THAT(logged(),
        testing::ElementsAre( //
            "app.vesko.capture " + info + " library_ready",
            "app.vesko.insertion " + info + " capture_ok role=AXTextArea",
            "app.vesko.capture " + info + " capture_started",
            "app.vesko.capture " + info + " recording_saved",
            "app.vesko.insertion " + info
                + " paste_sent role=AXTextArea notes=cursor_moved,text_changed",
            "app.vesko.capture " + info + " transcription_saved",
            "app.vesko.insertion " + info + " capture_ok role=AXTextArea",
            "app.vesko.capture " + info + " capture_started",
            "app.vesko.capture " + info + " recording_saved",
            "app.vesko.capture " + error + " transcription_failed",
            "app.vesko.insertion " + info + " capture_ok role=-",
            "app.vesko.capture " + info + " capture_started",
            "app.vesko.capture " + info + " recording_saved",
            "app.vesko.insertion " + info
                + " paste_refused reasons=app_changed,not_writable role=-",
            "app.vesko.capture " + info + " transcription_saved",
            "app.vesko.insertion " + info + " capture_skipped reason=accessibility role=-",
            "app.vesko.capture " + info + " capture_started",
            "app.vesko.capture " + info + " recording_saved",
            "app.vesko.capture " + info + " transcription_saved"));
}

} // namespace

} // namespace vesko
