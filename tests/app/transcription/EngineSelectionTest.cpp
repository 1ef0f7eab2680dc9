// What the settings name is what recognises, and nothing else.

#include "VeskoApp/transcription/EngineSelection.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeSecretStore.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/FakeSpeechEngines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EngineSelectionTest : public testing::Test {
protected:
    EngineSelectionTest()
    {
        engines.found.insert(engines.found.begin(),
            FoundEngine{ .id = "whisper.cpp/base", .name = "whisper.cpp", .languages = { "ru" } });
    }

    void open()
    {
        preferences.emplace(settings, keychain, loginItem);
        selection.emplace(engines, *preferences, keychain);
    }
    bool isThere() { return awaited(selection->isThere()); }
    std::vector<std::string> used() const
    {
        std::vector<std::string> ids;
        for (const auto& choice : engines.used)
            ids.push_back(choice.id);
        return ids;
    }

    FakeSettingsStore settings;
    FakeSecretStore secrets;
    FakeLoginItem loginItem;
    FakeSpeechEngines engines;
    Keychain keychain{ secrets };
    std::optional<Preferences> preferences;
    std::optional<EngineSelection> selection;
};

TEST_F(EngineSelectionTest, TheRecognisersOwnIsThereWithoutASearch)
{
    open();
    EXPECT_TRUE(isThere());
    EXPECT_THAT(engines.used, IsEmpty());
}

TEST_F(EngineSelectionTest, TheChoiceIsInUseFromTheStartOn)
{
    settings.set("engine", SettingValue{ std::string("whisper.cpp/base") });
    open();
    EXPECT_TRUE(isThere());
    EXPECT_THAT(used(), ElementsAre("whisper.cpp/base"));
}

TEST_F(EngineSelectionTest, AnotherChoiceIsInUseAtOnce)
{
    open();
    preferences->engine.set("whisper.cpp/base");
    EXPECT_TRUE(isThere());
    preferences->soundsEnabled.set(false);
    preferences->engine.set("pocketsphinx");
    EXPECT_TRUE(isThere());
    EXPECT_THAT(used(), ElementsAre("whisper.cpp/base", "pocketsphinx"));
}

TEST_F(EngineSelectionTest, WhatIsGoneIsToldAndNotReplaced)
{
    settings.set("engine", SettingValue{ std::string("whisper.cpp/large") });
    open();
    EXPECT_FALSE(isThere());
    EXPECT_EQ(preferences->engine.get(), "whisper.cpp/large");
    EXPECT_THAT(engines.used, IsEmpty());
}

TEST_F(EngineSelectionTest, IsInUseOnceItIsKnownToBeThere)
{
    settings.set("engine", SettingValue{ std::string("server") });
    secrets.hang(); // the key of the server is waited for
    open();
    EXPECT_FALSE(selection->inUse());
    secrets.answer();
    EXPECT_TRUE(isThere());
    EXPECT_TRUE(selection->inUse());
    preferences->engine.set("whisper.cpp/large");
    EXPECT_FALSE(isThere());
    EXPECT_FALSE(selection->inUse());
}

TEST_F(EngineSelectionTest, NamesAnEngineAsRecordsDoWhetherItIsThereOrNot)
{
    settings.set("engineCommand", SettingValue{ std::string("/opt/vosk-transcriber -i {wav}") });
    open();
    const auto named = [&](const char* id) {
        preferences->engine.set(id);
        return selection->named();
    };
    EXPECT_EQ(named("pocketsphinx"), "pocketsphinx");
    EXPECT_EQ(named("whisper.cpp/large"), "whisper.cpp/large");
    EXPECT_EQ(named("engine/moonshine"), "moonshine");
    EXPECT_EQ(named("command"), "command/vosk-transcriber");
    EXPECT_EQ(named("server"), "server");
    preferences->engineCommandModel.set("/models/ru");
    preferences->engineServerModel.set("Systran/faster-whisper");
    EXPECT_EQ(named("command"), "command/ru");
    EXPECT_EQ(named("server"), "server/Systran/faster-whisper");
}

TEST_F(EngineSelectionTest, ACommandIsALineOfWords)
{
    open();
    preferences->engineCommand.set(R"(vosk-transcriber -i {wav} --note "two words")");
    preferences->engineCommandModel.set("/models/ru");
    EXPECT_THAT(engines.used, IsEmpty());
    preferences->engine.set("command");
    EXPECT_TRUE(isThere());
    EXPECT_THAT(engines.used[0].command,
        ElementsAre("vosk-transcriber", "-i", "{wav}", "--note", "two words"));
    EXPECT_EQ(engines.used[0].commandModel, "/models/ru");
}

TEST_F(EngineSelectionTest, AServerComesWithItsKeyFromTheSecretStore)
{
    settings.set("engine", SettingValue{ std::string("server") });
    settings.set("engineServer", SettingValue{ std::string("http://127.0.0.1:8080") });
    settings.set("engineServerModel", SettingValue{ std::string("whisper-1") });
    open();
    EXPECT_TRUE(isThere());
    secrets.put("speech-server", "sk-house");
    selection->keyChanged();
    EXPECT_TRUE(isThere());
    ASSERT_EQ(engines.used.size(), 2U);
    EXPECT_EQ(engines.used[0].serverAddress, "http://127.0.0.1:8080");
    EXPECT_EQ(engines.used[0].serverModel, "whisper-1");
    EXPECT_TRUE(engines.used[0].serverKey.empty());
    EXPECT_EQ(engines.used[1].serverKey, "sk-house");
}

TEST_F(EngineSelectionTest, AServerWhoseKeyCannotBeHadIsNotThere)
{
    settings.set("engine", SettingValue{ std::string("server") });
    secrets.lock();
    open();
    EXPECT_FALSE(isThere());
}

} // namespace

} // namespace vesko
