// Where the controller tells usage analytics of what happens, as a real server hears it; the words,
// names and paths of the user never come along.

#include "tests/app/AppModelTest.h"
#include "tests/app/analytics/WireCheck.h"
#include "tests/fakes/Files.h"

namespace vesko {

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TrackedEventsTest : public AppModelTest {
protected:
    TrackedEventsTest()
    {
        choose("analyticsConsent", true);
        analytics = { .appKey = "A-EU-1",
            .baseURL = server.url(),
            .environment = AnalyticsEnvironment::production,
            .version = "1.2.3",
            .build = "45" };
        machine.recognizer.hears = "purple elephants dance";
        for (int request = 0; request < 100; ++request)
            server.reply(LoopbackServer::answer(200, ""));
    }

    // What has been told since the last time, in its order.
    std::vector<std::string> told()
    {
        EXPECT_TRUE(eventually([&] {
            machine.clock.turn(1);
            return model->analytics().queue().items.empty() && machine.clock.armed() == 0;
        }));
        std::vector<std::string> names;
        const auto requests = server.requests();
        for (; m_read < requests.size(); ++m_read) {
            EXPECT_THAT(WireCheck::objections(requests[m_read]), IsEmpty());
            EXPECT_THAT(requests[m_read].bytes,
                Not(AnyOf(HasSubstr("elephants"), HasSubstr(root().string()),
                    HasSubstr("sk-secret"), HasSubstr("vendor:speech"))));
            const auto events = WireCheck::events(requests[m_read].body);
            names.insert(names.end(), events.begin(), events.end());
        }
        return names;
    }

    LoopbackServer server;

private:
    std::size_t m_read = 0; // requests
};

TEST_F(TrackedEventsTest, TheStartOfTheProgram)
{
    open();
    EXPECT_THAT(told(), ElementsAre("app_started"));
}

TEST_F(TrackedEventsTest, ADictationFromItsStartToTheClipboard)
{
    open();
    dictate();
    finish();
    model->review().stop();
    EXPECT_EQ(onlyNote().body, "purple elephants dance");
    EXPECT_THAT(told(),
        ElementsAre("app_started", "note_created", "recording_started", "recording_saved",
            "text_copied", "transcription_succeeded"));
}

TEST_F(TrackedEventsTest, AVoiceNoteAndWhatIsAppendedToIt)
{
    open();
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    finish();
    EXPECT_THAT(told(),
        ElementsAre("app_started", "note_created", "recording_started", "recording_saved",
            "transcription_succeeded"));
    model->capture().recordNote(true);
    ASSERT_TRUE(reach(Phase::recording));
    finish();
    EXPECT_THAT(
        told(), ElementsAre("recording_started", "recording_saved", "transcription_succeeded"));
}

TEST_F(TrackedEventsTest, ARunThatFails)
{
    machine.recognizer.hears = "";
    open();
    dictate();
    finish();
    EXPECT_NE(model->status().errorMessage(), "");
    EXPECT_THAT(told(),
        ElementsAre("app_started", "note_created", "recording_started", "recording_saved",
            "transcription_failed"));
}

TEST_F(TrackedEventsTest, ARunByAServiceThatRefusesTheKey)
{
    LoopbackServer provider;
    openRouterURL = provider.url() + "/api/v1/";
    choose("provider", std::string("openrouter"));
    choose("sttModel", std::string("vendor:speech"));
    machine.secrets.put("vesko-access", "sk-secret");
    provider.reply(LoopbackServer::answer(401, "sk-secret is unknown"));
    open();
    dictate();
    finish();
    ASSERT_EQ(provider.requests().size(), 1U);
    EXPECT_THAT(told(),
        ElementsAre("app_started", "note_created", "recording_started", "recording_saved",
            "transcription_failed"));
}

TEST_F(TrackedEventsTest, ARetryOfAStoredRecording)
{
    open();
    dictate();
    finish();
    model->review().stop();
    told();
    model->run().retry(onlyRecording(), false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(told(), ElementsAre("transcription_succeeded"));
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(told(), ElementsAre("text_copied", "transcription_succeeded"));
}

TEST_F(TrackedEventsTest, ARecordingThatCannotBeSavedIsNotToldAsSaved)
{
    open();
    dictate();
    breakStore();
    finish();
    repairStore();
    EXPECT_THAT(told(), ElementsAre("app_started", "note_created", "recording_started"));
}

TEST_F(TrackedEventsTest, AStartThatFailsIsNotToldAsOne)
{
    open();
    breakStore();
    model->capture().toggleDictation();
    ASSERT_TRUE(reach(Phase::idle));
    repairStore();
    EXPECT_THAT(told(), ElementsAre("app_started"));
}

TEST_F(TrackedEventsTest, AClipboardThatRefusesIsNotToldAsCopied)
{
    machine.clipboard.works = false;
    open();
    EXPECT_FALSE(model->clipboard().copy("purple elephants dance"));
    EXPECT_THAT(told(), ElementsAre("app_started"));
}

TEST_F(TrackedEventsTest, ANoteMadeByHandAndItsExport)
{
    open();
    model->notes().newNote();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_THAT(told(), ElementsAre("app_started", "note_created"));

    const auto id = onlyNote().id;
    model->notes().exportTo(id, folder.path() / "nowhere" / "note.md");
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_THAT(told(), IsEmpty());
    model->notes().exportTo(id, folder.path() / "note.md");
    ASSERT_TRUE(eventually([&] { return model->status().message() == "Markdown exported"; }));
    EXPECT_THAT(told(), ElementsAre("note_exported"));
}

TEST_F(TrackedEventsTest, WhateverAWindowTells)
{
    open();
    told();
    for (std::size_t event = 0; event < jsonNames<UsageEvent>.size(); ++event)
        model->analytics().track(static_cast<UsageEvent>(event));
    const auto names = told();
    EXPECT_TRUE(std::ranges::equal(names, jsonNames<UsageEvent>));
}

TEST_F(TrackedEventsTest, WithoutConsentNothingIsToldOrStored)
{
    machine.settings.values.erase("analyticsConsent");
    open();
    dictate();
    finish();
    EXPECT_TRUE(model->analytics().queue().items.empty());
    EXPECT_EQ(server.connections(), 0U);
    for (const auto& [key, value] : machine.settings.values)
        EXPECT_THAT(key, Not(HasSubstr("analytics")));
}

TEST_F(TrackedEventsTest, OfEventsThatWaitNothingStandsOnDisk)
{
    server.stopReading();
    open();
    dictate();
    finish();
    ASSERT_FALSE(model->analytics().queue().items.empty());
    for (const auto& [path, bytes] : contentOf(folder.path())) {
        EXPECT_THAT(bytes, Not(HasSubstr("text_copied"))) << path;
        EXPECT_THAT(bytes, Not(HasSubstr(model->analytics().state().sessionID))) << path;
        EXPECT_THAT(bytes, Not(HasSubstr(model->analytics().state().iid->text()))) << path;
    }
}

// The end of a capture when the program ends, or when its key turns out to be a combination, is no
// recording that the user made.
TEST_F(TrackedEventsTest, ACaptureThatTheProgramEndsIsNotTold)
{
    open();
    dictate();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_THAT(told(), ElementsAre("app_started", "note_created", "recording_started"));
}

} // namespace

} // namespace vesko
