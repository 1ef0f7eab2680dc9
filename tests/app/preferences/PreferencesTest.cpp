// The settings as they are read, written and told.

#include "VeskoApp/preferences/Preferences.h"
#include "VeskoCore/library/VeskoError.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeSecretStore.h"
#include "tests/fakes/FakeSettingsStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace vesko {

namespace {

class PreferencesTest : public testing::Test {
protected:
    Preferences& make()
    {
        preferences.reset();
        preferences = std::make_unique<Preferences>(settings, keychain, loginItem);
        return *preferences;
    }
    template <class T>
    void store(const std::string& key, T value)
    {
        settings.values.insert_or_assign(key, SettingValue{ value });
    }

    FakeSettingsStore settings;
    FakeSecretStore secrets;
    FakeLoginItem loginItem;
    Keychain keychain{ secrets };
    std::unique_ptr<Preferences> preferences;
};

TEST_F(PreferencesTest, WithNothingStoredTheyAreTheDefaultsAndNothingIsWritten)
{
    const auto& p = make();
    EXPECT_EQ(p.keySource.get(), "vesko");
    EXPECT_TRUE(p.soundsEnabled.get());
    EXPECT_TRUE(p.learnCorrections.get());
    EXPECT_TRUE(p.dictionaryEnabled.get());
    EXPECT_EQ(p.provider.get(), "openrouter");
    EXPECT_EQ(p.sttModel.get(), "openai/whisper-large-v3-turbo");
    EXPECT_EQ(p.cleanupModel.get(), "xiaomi/mimo-v2.6-pro");
    EXPECT_FALSE(p.cleanupEnabled.get());
    EXPECT_EQ(p.language.get(), "auto");
    EXPECT_FALSE(p.languageAnswered.get());
    EXPECT_EQ(p.translateTo.get(), "off");
    EXPECT_TRUE(p.fnEnabled.get());
    EXPECT_TRUE(p.pasteEnabled.get());
    EXPECT_FALSE(p.returnClipboard.get());
    EXPECT_EQ(p.shortcut.get(), "");
    EXPECT_TRUE(p.showFloating.get());
    EXPECT_FALSE(p.allowCloudProcessing.get());
    EXPECT_FALSE(p.hasKey());
    EXPECT_FALSE(p.hasVeskoAccess());
    EXPECT_EQ(p.loginStatus(), LoginStatus::notRegistered);
    EXPECT_EQ(settings.writes, 0);
}

TEST_F(PreferencesTest, WhatIsStoredIsTakenAsItIs)
{
    store("provider", std::string("carrier pigeon"));
    store("keySource", std::string(""));
    store("sttModel", std::string(" vendor/speech "));
    store("soundsEnabled", false);
    store("cleanupEnabled", true);
    store("languageAnswered", true);
    store("showFloating", false);
    const auto& p = make();
    EXPECT_EQ(p.provider.get(), "carrier pigeon");
    EXPECT_EQ(p.keySource.get(), "");
    EXPECT_EQ(p.sttModel.get(), " vendor/speech ");
    EXPECT_FALSE(p.soundsEnabled.get());
    EXPECT_TRUE(p.cleanupEnabled.get());
    EXPECT_TRUE(p.languageAnswered.get());
    EXPECT_FALSE(p.showFloating.get());
    EXPECT_EQ(settings.writes, 0);
}

TEST_F(PreferencesTest, AStoredValueOfAnotherKindIsNone)
{
    store("soundsEnabled", std::string("false"));
    store("cleanupEnabled", 1.0);
    store("provider", true);
    store("language", std::vector<double>{ 1, 2 });
    const auto& p = make();
    EXPECT_TRUE(p.soundsEnabled.get());
    EXPECT_FALSE(p.cleanupEnabled.get());
    EXPECT_EQ(p.provider.get(), "openrouter");
    EXPECT_EQ(p.language.get(), "auto");
}

TEST_F(PreferencesTest, EveryAssignmentIsWrittenAndEveryChangeTold)
{
    auto& p = make();
    int told = 0;
    QObject::connect(&p, &Preferences::changed, [&] { ++told; });
    p.language.set("de-DE");
    p.pasteEnabled.set(false);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(settings.get<std::string>("language"), "de-DE");
    EXPECT_EQ(settings.get<bool>("pasteEnabled"), false);
    p.pasteEnabled.set(false);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(settings.writes, 3);

    const auto& next = make();
    EXPECT_EQ(next.language.get(), "de-DE");
    EXPECT_FALSE(next.pasteEnabled.get());
}

TEST_F(PreferencesTest, EverySettingHasAKeyOfItsOwn)
{
    auto& p = make();
    p.provider.set("1");
    p.keySource.set("2");
    p.sttModel.set("3");
    p.cleanupModel.set("4");
    p.language.set("5");
    p.translateTo.set("6");
    p.shortcut.set("7");
    p.shortcutKeyName.set("8");
    for (auto* flag : { &p.soundsEnabled, &p.learnCorrections, &p.dictionaryEnabled, &p.fnEnabled,
             &p.pasteEnabled, &p.showFloating })
        flag->set(false);
    for (auto* flag : { &p.cleanupEnabled, &p.languageAnswered, &p.returnClipboard })
        flag->set(true);
    const std::map<std::string, SettingValue> expected{
        { "provider", std::string("1") },
        { "keySource", std::string("2") },
        { "sttModel", std::string("3") },
        { "cleanupModel", std::string("4") },
        { "language", std::string("5") },
        { "translateTo", std::string("6") },
        { "shortcut", std::string("7") },
        { "shortcutKeyName", std::string("8") },
        { "soundsEnabled", false },
        { "learnCorrections", false },
        { "dictionaryEnabled", false },
        { "fnEnabled", false },
        { "pasteEnabled", false },
        { "showFloating", false },
        { "cleanupEnabled", true },
        { "languageAnswered", true },
        { "returnClipboard", true },
    };
    EXPECT_EQ(settings.values, expected);
}

TEST_F(PreferencesTest, WhatIsAssumedIsInForceAndNotWrittenUntilSomethingIsSet)
{
    auto& p = make();
    p.provider.assume("apple");
    EXPECT_EQ(p.provider.get(), "apple");
    p.refresh();
    EXPECT_EQ(settings.get<std::string>("provider"), std::nullopt);
    p.provider.assume(std::nullopt);
    EXPECT_EQ(p.provider.get(), "openrouter");
    p.provider.assume("apple");
    p.provider.set("apple");
    EXPECT_FALSE(p.provider.assumed());
    EXPECT_EQ(settings.get<std::string>("provider"), "apple");
}

TEST_F(PreferencesTest, TheGestureKeyIsTheUsersElseFnElseRightControl)
{
    EXPECT_EQ(make().gestureKey(true), GestureKey::fn);
    EXPECT_EQ(make().gestureKey(false), GestureKey::rightControl);
    for (const auto key : { GestureKey::fn, GestureKey::rightControl, GestureKey::rightAlt,
             GestureKey::menu, GestureKey::pause, GestureKey::scrollLock }) {
        make().setGestureKey(key);
        EXPECT_EQ(preferences->gestureKey(true), key);
        EXPECT_EQ(make().gestureKey(false), key);
    }
    store("gestureKey", std::string("the one beside the other"));
    EXPECT_EQ(make().gestureKey(false), GestureKey::rightControl);
}

TEST_F(PreferencesTest, AKeyIsTrimmedStoredAndTakenIntoUse)
{
    auto& p = make();
    ASSERT_EQ(p.keySource.get(), "vesko");
    awaited(p.saveKey(" \tsk-or-1234\r\n"));
    EXPECT_EQ(secrets.items().at("personal"), "sk-or-1234");
    EXPECT_TRUE(p.hasKey());
    EXPECT_EQ(p.keySource.get(), "personal");

    awaited(p.saveKey("sk-or-5678"));
    EXPECT_EQ(secrets.items().at("personal"), "sk-or-5678");
    EXPECT_EQ(secrets.items().size(), 1U);
}

TEST_F(PreferencesTest, AKeyThatIsNoneIsRefusedAndNothingIsWritten)
{
    auto& p = make();
    for (const char* text : { "", "  \n", "sk-\nor", "sk-\ror", "sk-or\r\nX-Header: 1" }) {
        SCOPED_TRACE(text);
        try {
            awaited(p.saveKey(text));
            ADD_FAILURE() << "it was taken";
        } catch (const VeskoError& error) {
            EXPECT_EQ(error, VeskoError(VeskoError::missingKey));
        }
    }
    EXPECT_TRUE(secrets.items().empty());
    EXPECT_FALSE(p.hasKey());
    EXPECT_EQ(p.keySource.get(), "vesko");
    EXPECT_EQ(settings.writes, 0);
}

TEST_F(PreferencesTest, ASecretStoreThatFailsChangesNothing)
{
    auto& p = make();
    secrets.lock();
    EXPECT_THROW(awaited(p.saveKey("sk-1")), KeychainFailure);
    EXPECT_FALSE(p.hasKey());
    EXPECT_EQ(p.keySource.get(), "vesko");

    secrets.unlock();
    awaited(p.saveKey("sk-1"));
    secrets.lock();
    EXPECT_THROW(awaited(p.removeKey()), KeychainFailure);
    EXPECT_TRUE(p.hasKey());
}

TEST_F(PreferencesTest, ARemovedKeyLeavesTheKeySourceAlone)
{
    auto& p = make();
    awaited(p.saveKey("sk-1"));
    awaited(p.removeKey());
    EXPECT_FALSE(p.hasKey());
    EXPECT_TRUE(secrets.items().empty());
    EXPECT_EQ(p.keySource.get(), "personal");

    awaited(p.removeKey()); // there is none
    EXPECT_FALSE(p.hasKey());
}

TEST_F(PreferencesTest, AChoiceWhoseKeyIsKnownToBeMissingGivesWayToTheOther)
{
    const struct {
        const char* what;
        const char* chosen;
        bool personal;
        bool access;
        const char* inForce;
    } rows[] = {
        { "both keys", "vesko", true, true, "vesko" },
        { "only the other", "vesko", true, false, "personal" },
        { "no key at all", "vesko", false, false, "vesko" },
        { "the chosen one", "personal", true, false, "personal" },
        { "only what was not chosen", "personal", false, true, "personal" },
    };
    for (const auto& [what, chosen, personal, access, inForce] : rows) {
        SCOPED_TRACE(what);
        secrets.remove("personal");
        secrets.remove("vesko-access");
        if (personal)
            secrets.put("personal", "sk-1");
        if (access)
            secrets.put("vesko-access", "sk-2");
        store("keySource", std::string(chosen));
        auto& p = make();
        EXPECT_EQ(p.keySourceInForce(), chosen); // nobody has asked yet
        awaited(p.refreshKeys());
        EXPECT_EQ(p.keySourceInForce(), inForce);
        EXPECT_EQ(p.keySource.get(), chosen);
    }
}

TEST_F(PreferencesTest, TheKeySourceNamesTheAccount)
{
    EXPECT_EQ(Preferences::keyAccount("vesko"), "vesko-access");
    EXPECT_EQ(Preferences::keyAccount("personal"), "personal");
    EXPECT_EQ(Preferences::keyAccount("Vesko"), "personal");
    EXPECT_EQ(Preferences::keyAccount(""), "personal");
}

TEST_F(PreferencesTest, TheKeyFactsAreAskedForAndAFailureIsNoKey)
{
    auto& p = make();
    secrets.put("personal", "sk-1");
    awaited(p.refreshKeys());
    EXPECT_TRUE(p.hasKey());
    EXPECT_FALSE(p.hasVeskoAccess());
    secrets.put("vesko-access", "sk-2");
    secrets.remove("personal");
    awaited(p.refreshKeys());
    EXPECT_FALSE(p.hasKey());
    EXPECT_TRUE(p.hasVeskoAccess());
    secrets.lock();
    awaited(p.refreshKeys());
    EXPECT_FALSE(p.hasKey());
    EXPECT_FALSE(p.hasVeskoAccess());
}

TEST_F(PreferencesTest, ARefreshTakesInWhatOthersChangedAndNoMore)
{
    auto& p = make();
    store("provider", std::string("apple"));
    store("keySource", std::string("personal"));
    store("language", std::string("de"));
    loginItem.current = LoginStatus::requiresApproval;
    secrets.put("personal", "sk-1");
    p.refresh();
    EXPECT_EQ(p.provider.get(), "apple");
    EXPECT_EQ(p.keySource.get(), "personal");
    EXPECT_EQ(p.language.get(), "auto");
    EXPECT_EQ(p.loginStatus(), LoginStatus::requiresApproval);
    EXPECT_TRUE(eventually([&] { return p.hasKey(); }));
}

TEST_F(PreferencesTest, ARefreshWritesWhatWasNeverStored)
{
    auto& p = make();
    p.refresh();
    EXPECT_EQ(settings.values,
        (std::map<std::string, SettingValue>{
            { "provider", std::string("openrouter") },
            { "keySource", std::string("vesko") },
        }));
}

TEST_F(PreferencesTest, ARefreshUnderWayEndsWithThem)
{
    make().refresh();
    preferences.reset();
    drainEvents();
}

TEST_F(PreferencesTest, StartAtLoginIsWhatTheSystemSaysAfterwards)
{
    auto& p = make();
    p.setLogin(true);
    EXPECT_EQ(p.loginStatus(), LoginStatus::enabled);
    loginItem.fails = true;
    EXPECT_THROW(p.setLogin(false), std::system_error);
    EXPECT_EQ(p.loginStatus(), LoginStatus::enabled);
    loginItem.fails = false;
    p.setLogin(false);
    EXPECT_EQ(p.loginStatus(), LoginStatus::notRegistered);
}

} // namespace

} // namespace vesko
