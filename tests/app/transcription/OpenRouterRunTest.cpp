// From a stored recording to a stored text, with speech recognised by OpenRouter.

#include "VeskoCore/library/VeskoError.h"
#include "tests/app/AppModelTest.h"
#include "tests/fakes/LoopbackServer.h"

#include <chrono>

namespace vesko {

namespace {

using testing::HasSubstr;

constexpr const char* missingKey = "Add your OpenRouter key in Settings. Your audio stays saved.";

class OpenRouterRunTest : public AppModelTest {
protected:
    OpenRouterRunTest()
    {
        openRouterURL = server.url() + "/api/v1/";
        choose("provider", std::string("openrouter"));
        machine.secrets.put("vesko-access", "sk-vesko");
        machine.secrets.put("personal", "sk-personal");
    }

    void say(const std::string& text)
    {
        server.reply(
            LoopbackServer::answer(200, R"({"text":")" + text + R"(","usage":{"cost":0.0025}})",
                { { "X-Generation-Id", "gen-1" } }));
    }
    void expectFailedRun(const std::string& text)
    {
        EXPECT_EQ(model->status().errorMessage(), text);
        EXPECT_EQ(model->status().message(), "Audio saved. Transcription needs attention.");
        EXPECT_EQ(machine.clipboard.text, std::nullopt);
        const auto& recording = model->library().contents().notes.back().recordings.back();
        EXPECT_EQ(recording.status, RecordingStatus::failed);
        EXPECT_EQ(recording.attempts.back().status, AttemptStatus::failed);
        EXPECT_EQ(recording.attempts.back().errorMessage, text);
    }

    LoopbackServer server;
};

TEST_F(OpenRouterRunTest, TheAudioIsSentAndTheTextDelivered)
{
    choose("sttModel", std::string("vendor:speech"));
    choose("language", std::string("de-DE"));
    open();
    say("Guten Tag");
    dictate();
    finish();
    const auto request = server.onlyRequest();
    EXPECT_EQ(request.startLine, "POST /api/v1/audio/transcriptions HTTP/1.1");
    EXPECT_EQ(request.header("Authorization"), "Bearer sk-vesko");
    EXPECT_THAT(request.body, HasSubstr(R"("model":"vendor:speech")"));
    EXPECT_THAT(request.body, HasSubstr(R"("data":"cmVjb3JkZWQgc291bmQ=","format":"m4a")"));
    EXPECT_THAT(request.body, HasSubstr(R"("language":"de")"));

    EXPECT_EQ(onlyNote().body, "Guten Tag");
    EXPECT_EQ(onlyAttempt().provider, "OpenRouter");
    EXPECT_EQ(onlyAttempt().model, "vendor:speech");
    EXPECT_EQ(onlyAttempt().cost, 0.0025);
    EXPECT_EQ(onlyAttempt().requestID, "gen-1");
    EXPECT_EQ(machine.clipboard.text, "Guten Tag");
    EXPECT_EQ(model->status().message(), "Copied. Paste sent to the original field.");
    EXPECT_TRUE(machine.recognizer.audio.empty());
}

TEST_F(OpenRouterRunTest, SilenceIsSentToNobodyAndNeedsNoKey)
{
    machine.secrets.remove("vesko-access");
    machine.speechGate.finds = false;
    open();
    dictate();
    finish();
    expectFailedRun("No speech was heard. The recording is saved.");
    EXPECT_TRUE(server.requests().empty());
    EXPECT_THAT(machine.speechGate.audio, testing::ElementsAre(audioFile()));
}

TEST_F(OpenRouterRunTest, SpeechIsLookedForWhileTheUserSpeaksAndInTheFileOnARetry)
{
    open();
    say("hello");
    dictate();
    EXPECT_THAT(machine.recorder.wasHeard, testing::ElementsAre(true));
    EXPECT_EQ(machine.speechGate.hearings, 1);
    finish();
    EXPECT_EQ(machine.speechGate.hearings, 0);
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(machine.speechGate.wasHeard, testing::ElementsAre(true, false));
    EXPECT_EQ(machine.recognizer.hearings, 0);
}

TEST_F(OpenRouterRunTest, TheKeyIsFetchedWhileTheUserSpeaks)
{
    open();
    say("hello");
    dictate();
    ASSERT_TRUE(eventually([&] { return machine.secrets.loads() == 1; }));
    drainEvents();
    machine.secrets.lock();
    finish();
    EXPECT_EQ(onlyNote().body, "hello");
}

TEST_F(OpenRouterRunTest, AKeyThatIsEnteredWhileTheUserSpeaksCounts)
{
    machine.secrets.remove("vesko-access");
    open();
    say("hello");
    dictate();
    ASSERT_TRUE(eventually([&] { return machine.secrets.loads() == 1; }));
    machine.secrets.put("vesko-access", "sk-late");
    finish();
    EXPECT_EQ(server.onlyRequest().header("Authorization"), "Bearer sk-late");
    EXPECT_EQ(onlyNote().body, "hello");
}

TEST_F(OpenRouterRunTest, AnUnknownProviderMeansOpenRouter)
{
    choose("provider", std::string("carrier pigeon"));
    open();
    say("hello");
    dictate();
    finish();
    EXPECT_EQ(onlyAttempt().provider, "OpenRouter");
    EXPECT_EQ(onlyNote().body, "hello");
}

TEST_F(OpenRouterRunTest, TheKeySourceNamesTheKeyAndNoOtherKeyIsTried)
{
    struct Case {
        const char* keySource;
        const char* removed; // from the secret store
        std::optional<std::string> sent;
    };
    const std::vector<Case> cases{
        { "vesko", "", "Bearer sk-vesko" },
        { "personal", "", "Bearer sk-personal" },
        { "anything else", "", "Bearer sk-personal" },
        { "vesko", "vesko-access", std::nullopt },
        { "personal", "personal", std::nullopt },
    };
    open();
    for (const auto& [keySource, removed, sent] : cases) {
        SCOPED_TRACE(std::string(keySource) + " without " + removed);
        machine.clipboard.text.reset();
        machine.secrets.put("vesko-access", "sk-vesko");
        machine.secrets.put("personal", "sk-personal");
        machine.secrets.remove(removed);
        model->preferences().keySource.set(keySource);
        const std::size_t before = server.requests().size();
        if (sent)
            say("hello");
        dictate();
        finish();
        if (sent) {
            EXPECT_EQ(server.requests().back().header("Authorization"), sent);
        } else {
            expectFailedRun(missingKey);
            EXPECT_EQ(server.requests().size(), before);
        }
    }
}

TEST_F(OpenRouterRunTest, AnEmptyKeyIsAMissingKey)
{
    machine.secrets.put("vesko-access", "");
    open();
    dictate();
    finish();
    expectFailedRun(missingKey);
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(OpenRouterRunTest, ASecretStoreThatFailsFailsTheRun)
{
    open();
    machine.secrets.lock();
    dictate();
    finish();
    expectFailedRun("Vesko could not access your key in Keychain. Unlock your Mac and try again.");

    machine.secrets.unlock();
    say("second try");
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().body, "second try");
}

// The store has asked the user for a password, who doesn't answer.
class AwaitedKeyTest : public OpenRouterRunTest {
protected:
    AwaitedKeyTest()
    {
        open();
        machine.secrets.hang();
    }

    std::string message() const { return model->status().message(); }
    void dictateUntilTheKeyIsAwaited(const std::string& text = "hello")
    {
        say(text);
        dictate();
        model->capture().toggleDictation();
        ASSERT_TRUE(reach(Phase::processing));
        ASSERT_TRUE(eventually([&] {
            machine.clock.turn(0.5);
            return message() == waits;
        }));
    }
    void answer()
    {
        machine.secrets.answer();
        awaited(model->preferences().refreshKeys()); // asked after the key, and answered after it
        drainEvents();
    }
    std::vector<std::string> bodies() const
    {
        std::vector<std::string> found;
        for (const Note& note : model->library().contents().notes)
            found.emplace_back(note.body);
        return found;
    }
    std::size_t attempts() const
    {
        std::size_t found = 0;
        for (const Note& note : model->library().contents().notes)
            for (const Recording& recording : note.recordings)
                found += recording.attempts.size();
        return found;
    }

    static constexpr const char* waits
        = "Original saved. Waiting for the key from your password store (keyring), which may be "
          "asking you to unlock it.";
};

TEST_F(AwaitedKeyTest, ItIsNamed)
{
    dictateUntilTheKeyIsAwaited();
    machine.secrets.answer();
    EXPECT_TRUE(eventually([&] { return message() == "Original saved. Transcribing…"; }));
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().body, "hello");
    EXPECT_EQ(machine.clipboard.text, "hello");
}

TEST_F(AwaitedKeyTest, TheUserCanDictateOnAndIsAskedOnce)
{
    for (int count = 0; count < 3; ++count) {
        dictateUntilTheKeyIsAwaited();
        EXPECT_EQ(model->capture().phase(), Phase::idle);
    }
    EXPECT_EQ(machine.secrets.loads(), 1);
    EXPECT_THAT(bodies(), testing::Each(""));
    machine.secrets.answer();
    EXPECT_TRUE(eventually([&] {
        return bodies() == std::vector<std::string>(3, "hello")
            && model->capture().phase() == Phase::idle;
    }));
    EXPECT_EQ(model->status().errorMessage(), "");
}

TEST_F(AwaitedKeyTest, WhatWaitedLeavesTheRecordingAfterItAlone)
{
    dictateUntilTheKeyIsAwaited();
    dictate();
    answer();
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_EQ(message(), "Recording. Press the shortcut again to finish.");
    EXPECT_THAT(bodies(), testing::Each(""));
    say("hello");
    model->capture().toggleDictation();
    EXPECT_TRUE(eventually([&] {
        return bodies() == std::vector<std::string>(2, "hello")
            && model->capture().phase() == Phase::idle;
    }));
}

TEST_F(AwaitedKeyTest, TextsComeInTheOrderOfTheirRecordings)
{
    struct Case {
        const char* keyComes;
        bool recording;
    };
    const std::vector<std::string> texts{ "first", "second", "third" };
    std::vector<std::string> all;
    for (const Case& one : { Case{ "while the last one is recorded", true },
             Case{ "before the user hears what the last one waits for", false } }) {
        SCOPED_TRACE(one.keyComes);
        machine.secrets.hang();
        for (const auto* text : { "first", "second" })
            dictateUntilTheKeyIsAwaited(text);
        say("third");
        dictate();
        if (!one.recording)
            model->capture().toggleDictation();
        answer();
        if (one.recording)
            model->capture().toggleDictation();
        all.insert(all.end(), texts.begin(), texts.end());
        // The service answers in the order in which it is asked.
        EXPECT_TRUE(eventually([&] {
            return bodies() == all && model->capture().phase() == Phase::idle;
        })) << testing::PrintToString(bodies());
    }
}

TEST_F(AwaitedKeyTest, AStoreThatStaysLockedFailsWhatWaitedOnceNothingIsRecorded)
{
    dictateUntilTheKeyIsAwaited();
    dictate();
    machine.secrets.lock();
    answer();
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_EQ(model->status().errorMessage(), "");
    model->capture().cancel();
    EXPECT_TRUE(eventually([&] {
        return !model->status().errorMessage().empty() && model->capture().phase() == Phase::idle;
    }));
    EXPECT_EQ(model->status().message(), "Audio saved. Transcription needs attention.");
}

TEST_F(AwaitedKeyTest, WhatWaitsIsNotTranscribedTwice)
{
    dictateUntilTheKeyIsAwaited();
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(onlyRecording().attempts.size(), 1U);
    machine.secrets.answer();
    EXPECT_TRUE(eventually([&] { return onlyNote().body == "hello"; }));
}

TEST_F(AwaitedKeyTest, ACancelReachesWhatIsUnderWayAndNotWhatWaits)
{
    dictateUntilTheKeyIsAwaited();
    EXPECT_FALSE(model->capture().cancel()) << "nothing is under way";
    say("hello");
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return attempts() == 2; }));
    ASSERT_TRUE(model->capture().cancel());
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(message(), "Transcription cancelled. The recording is saved.");
    answer();
    EXPECT_TRUE(eventually([&] {
        return bodies() == std::vector<std::string>{ "hello", "" }
        && model->capture().phase() == Phase::idle;
    }));
}

TEST_F(AwaitedKeyTest, QuittingWaitsForNothing)
{
    dictateUntilTheKeyIsAwaited();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    machine.secrets.answer();
}

TEST_F(OpenRouterRunTest, ARefusalOfTheServiceIsPutIntoWords)
{
    struct Case {
        const char* name;
        LoopbackServer::Reply reply;
        const char* text;
    };
    const std::vector<Case> cases{
        { "key rejected", LoopbackServer::answer(401, "sk-vesko is wrong"),
            "OpenRouter rejected this key. Check it in Settings." },
        { "no credit", LoopbackServer::answer(402, ""),
            "OpenRouter needs more credit. Top up your account, then retry." },
        { "busy", LoopbackServer::answer(429, ""),
            "The provider is busy or its limit was reached. Try again later." },
        { "broken", LoopbackServer::answer(503, "<html>"),
            "The provider could not complete this request. Your audio is saved. Try again "
            "later." },
        { "no sense", LoopbackServer::answer(200, "<html>"),
            "The provider returned an unreadable result. Your audio is saved." },
        { "silence", LoopbackServer::answer(200, R"({"text":" "})"),
            "No speech was returned. Your audio is saved. You can retry with another model." },
        { "cut off",
            { .bytes = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{",
                .then = LoopbackServer::Then::reset },
            "The network is unavailable. Your recording is saved. Reconnect and retry." },
    };
    open();
    std::size_t requests = 0;
    for (const auto& [name, reply, text] : cases) {
        SCOPED_TRACE(name);
        server.reply(reply);
        dictate();
        finish();
        expectFailedRun(text);
        EXPECT_EQ(server.requests().size(), ++requests); // once: a repeat may be charged
    }
}

TEST_F(OpenRouterRunTest, ARunThatTheNetworkFailsCanBeRepeatedFromTheLibrary)
{
    open();
    server.reply(LoopbackServer::answer(500, ""));
    dictate();
    finish();
    ASSERT_NE(model->status().errorMessage(), "");
    say("back again");
    model->run().retry(onlyRecording(), true);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(onlyRecording().attempts.size(), 2U);
    EXPECT_EQ(onlyNote().body, "back again");
}

TEST_F(OpenRouterRunTest, AMachineWithoutNetworkSaysSo)
{
    openRouterURL = "http://127.0.0.1:1/api/v1/"; // where nobody listens
    open();
    dictate();
    finish();
    expectFailedRun("The network is unavailable. Your recording is saved. Reconnect and retry.");
}

TEST_F(OpenRouterRunTest, AServiceThatNeverAnswersSaysWhatARetryMayCost)
{
    openRouterTransport = [](const HttpRequest&, const std::stop_token&) -> HTTPResult {
        throw URLError(URLError::timedOut);
    };
    open();
    dictate();
    finish();
    expectFailedRun("The provider timed out. Your recording is saved. A retry may incur another "
                    "provider charge.");
}

TEST_F(OpenRouterRunTest, AudioThatIsGoneIsReportedWithoutTheSystemsWords)
{
    open();
    dictate();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    std::filesystem::remove(audioFile());
    finish();
    expectFailedRun("Vesko could not complete this operation. Your saved files were preserved. "
                    "Check the data folder and try again.");
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(OpenRouterRunTest, AudioTooLargeForOneRequestIsNotSent)
{
    open();
    dictate();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    std::filesystem::resize_file(audioFile(), OpenRouterClient::audioLimit + 1);
    finish();
    expectFailedRun("This audio is too large for one request. The original is saved. Use a "
                    "shorter recording.");
    EXPECT_EQ(server.connections(), 0U);
}

TEST_F(OpenRouterRunTest, AChangeOfTheSettingsDoesNotReachARunUnderWay)
{
    choose("sttModel", std::string("vendor:first"));
    open();
    say("hello");
    dictate();
    model->preferences().provider.set("apple");
    model->preferences().sttModel.set("vendor:second");
    model->preferences().keySource.set("personal");
    finish();
    EXPECT_THAT(server.onlyRequest().body, HasSubstr("vendor:first"));
    EXPECT_EQ(server.onlyRequest().header("Authorization"), "Bearer sk-vesko");

    model->preferences().provider.set("openrouter");
    say("again");
    model->run().retry(onlyRecording(), false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(server.requests().back().body, HasSubstr("vendor:second"));
    EXPECT_EQ(server.requests().back().header("Authorization"), "Bearer sk-personal");
}

TEST_F(OpenRouterRunTest, AnAnswerThatIsGivenUpIsNotAwaited)
{
    open();
    server.stopReading();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return server.connections() == 1; }));
    ASSERT_TRUE(model->capture().cancel());
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::failed);
    EXPECT_EQ(onlyAttempt().errorMessage, "Transcription cancelled. The recording is saved.");
}

TEST_F(OpenRouterRunTest, TheProgramEndsAtOnceWhileAnAnswerIsAwaited)
{
    open();
    server.stopReading();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return server.connections() == 1; }));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    const auto before = std::chrono::steady_clock::now();
    model.reset();
    // Far below the client's own time-out.
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20));
}

} // namespace

} // namespace vesko
