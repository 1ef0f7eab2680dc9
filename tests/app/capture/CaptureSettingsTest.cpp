// The choices of a capture are the user's at its start.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

class CaptureSettingsTest : public AppModelTest {
protected:
    CaptureSettings now() const
    {
        return CaptureSettings::from(model->preferences(), model->library().contents());
    }
};

TEST_F(CaptureSettingsTest, TheSettingsOfACaptureAreThoseOfItsStart)
{
    open();
    machine.recorder.access.close();
    model->capture().toggleDictation();
    model->preferences().language.set("de-DE"); // while the user is being asked
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    model->preferences().provider.set("openrouter"); // while recording
    model->preferences().pasteEnabled.set(false);
    model->capture().toggleDictation();
    model->preferences().keySource.set("personal"); // while transcribing
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyAttempt().provider, "Apple on-device");
    EXPECT_EQ(onlyAttempt().model, "pocketsphinx");
    EXPECT_EQ(machine.pasteKeystroke.sent, 1);
}

TEST_F(CaptureSettingsTest, TheSettingsOfACaptureSayWhatThePreferencesSay)
{
    choose("sttModel", std::string("vendor/speech"));
    choose("cleanupEnabled", true);
    choose("cleanupModel", std::string("vendor/text"));
    choose("translateTo", std::string("fr"));
    choose("pasteEnabled", false);
    choose("allowCloudProcessing", false);
    open();
    auto settings = now();
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
    EXPECT_EQ(now().translateTo, std::nullopt);
}

} // namespace

} // namespace vesko
