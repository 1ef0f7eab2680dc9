// The controller is destroyed at every point where something is still to come. What comes then
// finds nobody, and nothing is left behind.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

class LifetimeTest : public AppModelTest {
protected:
    // The controller ends here; then everything that was pending comes.
    void end()
    {
        model.reset();
        machine.recorder.access.open();
        machine.recorder.starting.open();
        machine.recorder.finishing.open();
        machine.player.starting.open();
        machine.pasteKeystroke.keys.open();
        machine.focusedField.letGo();
        machine.clock.turn(1000);
        drainEvents();
        EXPECT_EQ(machine.clock.armed(), 0U);
        EXPECT_FALSE(machine.recognizer.running());
        EXPECT_FALSE(machine.recorder.onFailure);

        // The library is free for the next one, and whole.
        const LibraryStore store(root(), machine.clock);
        for (const auto& note : store.snapshot().notes)
            for (const auto& recording : note.recordings)
                EXPECT_NE(recording.status, RecordingStatus::transcribing);
    }
};

TEST_F(LifetimeTest, RightAfterTheStart)
{
    start();
    end();
}

TEST_F(LifetimeTest, WhileIdle)
{
    open();
    end();
}

TEST_F(LifetimeTest, WhileTheUserIsBeingAsked)
{
    open();
    machine.recorder.access.close();
    machine.focusedField.hold();
    model->capture().toggleDictation();
    ASSERT_TRUE(machine.recorder.access.waiting());
    end();
}

TEST_F(LifetimeTest, WhileTheNoteIsBeingSaved)
{
    open();
    model->capture().toggleDictation();
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    end();
}

TEST_F(LifetimeTest, WhileTheMicrophoneStarts)
{
    open();
    machine.recorder.starting.close();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    end();
}

TEST_F(LifetimeTest, WhileAFailedStartIsBeingStored)
{
    open();
    machine.recorder.startFails = true;
    machine.recorder.starting.close();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    machine.recorder.starting.open();
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    end();
}

TEST_F(LifetimeTest, WhileRecording)
{
    open();
    dictate();
    machine.clock.turn(1);
    end();
}

TEST_F(LifetimeTest, WhileALostRecordingIsBeingStored)
{
    open();
    dictate();
    machine.recorder.fail(RecorderFailure::encoding);
    end();
}

TEST_F(LifetimeTest, WhileTheFileIsBeingFinished)
{
    open();
    dictate();
    machine.recorder.finishing.close();
    model->capture().toggleDictation();
    ASSERT_TRUE(machine.recorder.finishing.waiting());
    end();
}

TEST_F(LifetimeTest, WhileTheCaptureIsBeingStored)
{
    open();
    dictate();
    model->capture().toggleDictation();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    end();
}

TEST_F(LifetimeTest, WhileADiscardedCaptureIsBeingStored)
{
    open();
    model->capture().handleFn(FnShortcutAction::begin);
    model->capture().handleFn(FnShortcutAction::hold);
    ASSERT_TRUE(reach(Phase::recording));
    model->capture().handleFn(FnShortcutAction::discard);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    end();
}

TEST_F(LifetimeTest, WhileSpeechIsBeingRecognised)
{
    open();
    machine.recognizer.hears.reset();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    end();
}

TEST_F(LifetimeTest, WhileTheTranscriptIsBeingStored)
{
    open();
    machine.recognizer.hears.reset();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    machine.recognizer.report({ .text = "words", .isFinal = true });
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    end();
}

TEST_F(LifetimeTest, WhileTheFieldIsAwaited)
{
    open();
    machine.focusedField.hold();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.clipboard.text.has_value(); }));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    end();
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
}

TEST_F(LifetimeTest, WhileTheUserHoldsAKey)
{
    open();
    machine.pasteKeystroke.keys.close();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.pasteKeystroke.keys.waiting(); }));
    end();
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
}

TEST_F(LifetimeTest, WhileAFailedRunIsBeingStored)
{
    open();
    machine.recognizer.hears.reset();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    machine.recognizer.report({ .text = std::nullopt, .failed = true });
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    end();
}

TEST_F(LifetimeTest, WhileARecordingPlays)
{
    open();
    dictate();
    finish();
    model->playback().play(onlyRecording());
    ASSERT_TRUE(eventually([&] { return model->playback().playingID().has_value(); }));
    end();
}

TEST_F(LifetimeTest, WhileThePlayerStarts)
{
    open();
    dictate();
    finish();
    machine.player.starting.close();
    model->playback().play(onlyRecording());
    ASSERT_TRUE(eventually([&] { return machine.player.starting.waiting(); }));
    end();
}

TEST_F(LifetimeTest, WhileTheSecretStoreIsBeingAsked)
{
    open();
    model->preferences().refresh();
    end();
}

} // namespace

} // namespace vesko
