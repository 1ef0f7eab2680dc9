// Each step on the way to a running capture fails once.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

constexpr const char* microphoneText
    = "The microphone could not start. Check your audio input and try again.";

class StartFailureTest : public AppModelTest {
protected:
    // What failed once is no reason for the next capture to fail.
    void expectThatTheNextCaptureWorks()
    {
        dictate();
        EXPECT_EQ(model->status().errorMessage(), "");
        finish();
        EXPECT_EQ(model->library().contents().notes.back().body, "hello world");
        EXPECT_EQ(model->status().errorMessage(), "");
    }
};

TEST_F(StartFailureTest, ARefusedMicrophoneLeavesNeitherNoteNorRecording)
{
    open();
    machine.recorder.grantsAccess = false;
    model->capture().toggleDictation();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(),
        "Allow Microphone for Vesko in System Settings > Privacy & Security > Microphone, then "
        "try again.");
    EXPECT_TRUE(machine.recorder.files.empty());
    EXPECT_FALSE(machine.recorder.running());

    machine.recorder.grantsAccess = true;
    expectThatTheNextCaptureWorks();
    EXPECT_EQ(model->library().contents().notes.size(), 1U);
}

TEST_F(StartFailureTest, ANoteThatCannotBeSavedIsReported)
{
    open();
    breakStore();
    model->capture().toggleDictation();
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), storageText);
    EXPECT_TRUE(machine.recorder.files.empty());
    EXPECT_FALSE(machine.recorder.running());

    repairStore();
    expectThatTheNextCaptureWorks();
    EXPECT_EQ(model->library().contents().notes.size(), 1U);
}

// The note and its recording are two changes; the disk can fail within each and between them.
TEST_F(StartFailureTest, ADiskThatFailsAtAnyMomentOfTheStartLeavesNothingHalfMade)
{
    open();
    int failures = 0;
    bool failing = true;
    for (int call = 0; failing; ++call) {
        SCOPED_TRACE(call);
        const auto captured = machine.recorder.files.size();
        files.at = call;
        files.number = ENOSPC;
        files.calls = 0;
        files.fault = FailingFileSystem::Fault::error;
        model->capture().toggleDictation();
        ASSERT_TRUE(eventually([&] {
            return model->capture().phase() == Phase::recording
                || model->capture().phase() == Phase::idle;
        }));
        drainEvents();
        files.fault = FailingFileSystem::Fault::none;
        failing = files.calls > call;
        if (model->capture().phase() == Phase::recording) {
            finish(); // what failed was of no consequence
            continue;
        }
        ++failures;
        EXPECT_EQ(model->status().errorMessage(), storageText);
        EXPECT_EQ(machine.recorder.files.size(), captured);
        EXPECT_FALSE(machine.recorder.running());
        for (const Note& note : model->library().contents().notes)
            for (const Recording& recording : note.recordings)
                EXPECT_EQ(recording.status, RecordingStatus::ready);
        expectThatTheNextCaptureWorks();
    }
    EXPECT_GT(failures, 8); // what makes, fills, syncs and renames a file, twice
}

TEST_F(StartFailureTest, ANoteThatIsGoneCannotBeContinued)
{
    open();
    model->selection().setSelectedNoteID(Uuid::random());
    model->capture().recordNote(true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), "This item is no longer available.");
    EXPECT_TRUE(machine.recorder.files.empty());
    EXPECT_FALSE(machine.recorder.running());
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, AnUnknownProjectIsReported)
{
    open();
    model->selection().setSelectedProjectID(Uuid::random());
    model->capture().toggleDictation();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), "This item is no longer available.");
    model->selection().setSelectedProjectID(std::nullopt);
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, ARecorderThatCannotStartMarksTheRecordingAsFailed)
{
    open();
    machine.recorder.startFails = true;
    model->capture().toggleDictation();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), microphoneText);
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::failed);
    EXPECT_EQ(onlyRecording().errorMessage, microphoneText);
    EXPECT_EQ(machine.clock.armed(), 0U);

    machine.recorder.startFails = false;
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, TheFirstFailureIsWhatTheUserReadsEvenIfItCannotBeStored)
{
    open();
    machine.recorder.starting.close();
    machine.recorder.startFails = true;
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    breakStore();
    machine.recorder.starting.open();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), microphoneText);

    repairStore();
    machine.recorder.startFails = false;
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, ARecordingThatEndsByItselfIsKeptAsFailed)
{
    struct Case {
        RecorderFailure failure;
        const char* text;
    };
    const std::vector<Case> cases{
        { RecorderFailure::stoppedUnexpectedly,
            "Recording stopped unexpectedly. Your original file was kept." },
        { RecorderFailure::encoding,
            "Recording was interrupted by an audio error. Your original file was kept." },
    };
    open();
    for (const auto& [failure, text] : cases) {
        SCOPED_TRACE(text);
        dictate();
        machine.recorder.power = -5;
        machine.clock.turn(1);
        ASSERT_GT(model->capture().level(), 0);
        machine.recorder.fail(failure);
        EXPECT_EQ(model->capture().phase(), Phase::idle);
        EXPECT_EQ(model->capture().level(), 0);
        ASSERT_TRUE(eventually([&] { return model->status().errorMessage() == text; }));
        const auto failed = [&] {
            const auto& notes = model->library().contents().notes;
            return !notes.empty()
                && notes.back().recordings.back().status == RecordingStatus::failed;
        };
        ASSERT_TRUE(eventually(failed));
        const auto& recording = model->library().contents().notes.back().recordings.back();
        EXPECT_EQ(recording.errorMessage, text);
        EXPECT_EQ(recording.duration, 0);
        EXPECT_TRUE(recording.attempts.empty());
        EXPECT_TRUE(std::filesystem::exists(root() / "recordings" / recording.fileName));
    }
    EXPECT_TRUE(machine.recognizer.audio.empty());
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, AFailedRecordingIsReportedEvenIfThatCannotBeStored)
{
    open();
    dictate();
    breakStore();
    machine.recorder.fail(RecorderFailure::encoding);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    ASSERT_TRUE(eventually([&] {
        return model->status().errorMessage()
            == "Recording was interrupted by an audio error. Your original file was kept.";
    }));
    repairStore();
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, ALateReportOfTheRecorderDoesNotTouchAFinishedCapture)
{
    open();
    dictate();
    model->capture().toggleDictation();
    machine.recorder.reportFailure(RecorderFailure::stoppedUnexpectedly);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    ASSERT_TRUE(reach(Phase::idle));
    machine.recorder.reportFailure(RecorderFailure::encoding);
    expectThatTheNextCaptureWorks();
    EXPECT_EQ(
        model->library().contents().notes[0].recordings.back().status, RecordingStatus::ready);
}

TEST_F(StartFailureTest, ACaptureThatCannotBeFinishedIsNotTranscribed)
{
    open();
    dictate();
    breakStore();
    model->capture().toggleDictation();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), storageText);
    EXPECT_TRUE(machine.recognizer.audio.empty());
    EXPECT_EQ(machine.clipboard.text, std::nullopt);
    repairStore();
    expectThatTheNextCaptureWorks();
}

TEST_F(StartFailureTest, ACaptureIsNotFinishedBeforeItsFileIsWhole)
{
    open();
    dictate();
    machine.recorder.finishing.close();
    model->capture().toggleDictation();
    drainEvents();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_TRUE(machine.recognizer.audio.empty());
    machine.recorder.finishing.open();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

} // namespace

} // namespace vesko
