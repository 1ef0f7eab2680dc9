// What the settings form shows and does.

#include "VeskoApp/settings/PreferencesView.h"
#include "tests/app/AppModelTest.h"

namespace vesko {
namespace {

using testing::ElementsAre;

class PreferencesViewTest : public AppModelTest {
protected:
    void open()
    {
        AppModelTest::open();
        permissions = std::make_unique<PermissionRows>(
            machine.all, [this] { ++restarts; }, [] { return std::string("auto"); });
        view = std::make_unique<PreferencesView>(
            PreferencesView::Neighbours{ .platform = machine.all,
                .preferences = model->preferences(),
                .permissions = *permissions,
                .accounts = model->accounts(),
                .analytics = model->analytics(),
                .catalog = model->catalog(),
                .cues = model->cues(),
                .status = model->status() });
    }
    template <class T>
    T stored(const std::string& key)
    {
        return machine.settings.get<T>(key).value();
    }
    static std::vector<std::string> column(const QVariantList& rows, const char* name)
    {
        std::vector<std::string> texts;
        for (const auto& row : rows)
            texts.push_back(row.toMap()[QString::fromUtf8(name)].toString().toStdString());
        return texts;
    }
    void waitForNotice()
    {
        ASSERT_TRUE(eventually([&] { return !view->notice().isEmpty(); }));
    }

    int restarts = 0;
    std::unique_ptr<PermissionRows> permissions;
    std::unique_ptr<PreferencesView> view; // ends before what it shows
};

TEST_F(PreferencesViewTest, creditsAreBoughtInTheUsersBrowser)
{
    open();
    view->openCredits();
    EXPECT_THAT(machine.browser.pages, ElementsAre("https://openrouter.ai/settings/credits"));
}

TEST_F(PreferencesViewTest, eachTextIsWrittenThroughAtOnce)
{
    open();
    using Set = void (PreferencesView::*)(const QString&);
    using Get = QString (PreferencesView::*)() const;
    const struct {
        const char* key;
        Set set;
        Get get;
    } rows[] = {
        { "provider", &PreferencesView::setProvider, &PreferencesView::provider },
        { "keySource", &PreferencesView::setKeySource, &PreferencesView::keySource },
        { "sttModel", &PreferencesView::setSTTModel, &PreferencesView::sttModel },
        { "cleanupModel", &PreferencesView::setCleanupModel, &PreferencesView::cleanupModel },
        { "language", &PreferencesView::setLanguage, &PreferencesView::language },
        { "translateTo", &PreferencesView::setTranslateTo, &PreferencesView::translateTo },
    };
    int told = 0;
    QObject::connect(view.get(), &PreferencesView::changed, [&] { ++told; });
    for (const auto& [key, set, get] : rows) {
        const int before = told;
        ((*view).*set)(QStringLiteral("as/typed "));
        EXPECT_EQ(stored<std::string>(key), "as/typed ") << key;
        EXPECT_EQ(((*view).*get)(), QStringLiteral("as/typed ")) << key;
        EXPECT_EQ(told, before + 1) << key;
    }
}

TEST_F(PreferencesViewTest, eachSwitchIsWrittenThroughAtOnce)
{
    open();
    using Set = void (PreferencesView::*)(bool);
    using Get = bool (PreferencesView::*)() const;
    const struct {
        const char* key;
        Set set;
        Get get;
        bool first;
    } rows[] = {
        { "cleanupEnabled", &PreferencesView::setCleanupEnabled, &PreferencesView::cleanupEnabled,
            false },
        { "fnEnabled", &PreferencesView::setFnEnabled, &PreferencesView::fnEnabled, true },
        { "showFloating", &PreferencesView::setShowFloating, &PreferencesView::showFloating, true },
        { "soundsEnabled", &PreferencesView::setSoundsEnabled, &PreferencesView::soundsEnabled,
            true },
        { "pasteEnabled", &PreferencesView::setPasteEnabled, &PreferencesView::pasteEnabled, true },
        { "returnClipboard", &PreferencesView::setReturnClipboard,
            &PreferencesView::returnClipboard, false },
        { "dictionaryEnabled", &PreferencesView::setDictionaryEnabled,
            &PreferencesView::dictionaryEnabled, true },
        { "learnCorrections", &PreferencesView::setLearnCorrections,
            &PreferencesView::learnCorrections, true },
    };
    for (const auto& [key, set, get, first] : rows) {
        EXPECT_EQ(((*view).*get)(), first) << key;
        ((*view).*set)(!first);
        EXPECT_EQ(((*view).*get)(), !first) << key;
        EXPECT_EQ(stored<bool>(key), !first) << key;
    }
}

TEST_F(PreferencesViewTest, aStoredProviderThatNobodyKnowsIsOpenRouter)
{
    choose("provider", std::string("other"));
    choose("keySource", std::string("whatever"));
    open();
    EXPECT_FALSE(view->onDevice());
    EXPECT_TRUE(view->usesPersonalKey());
    view->setProvider(QStringLiteral("apple"));
    EXPECT_TRUE(view->onDevice());
}

TEST_F(PreferencesViewTest, VeskoAccessIsOfferedWhereThereIsSome)
{
    choose("keySource", std::string("vesko"));
    open();
    EXPECT_TRUE(view->usesPersonalKey());
    EXPECT_THAT(column(view->keySources(), "tag"), ElementsAre("personal"));
    EXPECT_EQ(stored<std::string>("keySource"), "vesko");

    machine.secrets.put("vesko-access", "sk-2");
    view->opened();
    ASSERT_TRUE(eventually([&] { return view->hasVeskoAccess(); }));
    EXPECT_FALSE(view->usesPersonalKey());
    EXPECT_THAT(column(view->keySources(), "tag"), ElementsAre("vesko", "personal"));
}

TEST_F(PreferencesViewTest, theChoicesAreNamed)
{
    open();
    EXPECT_THAT(column(view->providers(), "tag"), ElementsAre("apple", "openrouter"));
    EXPECT_THAT(column(view->providers(), "name"), ElementsAre("Apple on-device", "OpenRouter"));
    machine.secrets.put("vesko-access", "sk-2");
    view->opened();
    ASSERT_TRUE(eventually([&] { return view->hasVeskoAccess(); }));
    EXPECT_THAT(column(view->keySources(), "name"), ElementsAre("Vesko access", "My personal key"));
    EXPECT_EQ(view->suggestedTextModels().size(), 5);
    EXPECT_EQ(view->suggestedTextModels()[0].toString().toStdString(),
        OpenRouterClient::defaultCleanupModel);
}

TEST_F(PreferencesViewTest, languagesStandInTheOrderOfTheirNamesBehindNone)
{
    open();
    const auto names = column(view->languages(), "name");
    EXPECT_EQ(names.size(), 15U);
    EXPECT_EQ(names.front(), "Automatic");
    EXPECT_EQ(column(view->languages(), "tag").front(), "auto");
    EXPECT_EQ(names[1], "Chinese");
    EXPECT_TRUE(std::is_sorted(names.begin() + 1, names.end()));
    EXPECT_EQ(column(view->translations(), "name").front(), "Off");
    EXPECT_EQ(column(view->translations(), "tag").front(), "off");
}

TEST_F(PreferencesViewTest, aLanguageInForceIsAlwaysOffered)
{
    choose("language", std::string("sv-SE"));
    open();
    const auto tags = column(view->languages(), "tag");
    EXPECT_EQ(std::ranges::count(tags, "sv-SE"), 1);
    EXPECT_EQ(tags.size(), 16U);
}

TEST_F(PreferencesViewTest, theHintSaysWhatTheLanguageMeans)
{
    open();
    EXPECT_TRUE(view->languageHint().startsWith(QStringLiteral("Automatic lets the speech")));
    view->setLanguage(QStringLiteral("de-DE"));
    EXPECT_EQ(view->languageHint(),
        QStringLiteral("Vesko tells the speech model you speak German. Choose Automatic if you "
                       "switch between languages."));
}

TEST_F(PreferencesViewTest, openingItReadsAgainWhatOthersChanged)
{
    open();
    machine.secrets.put("vesko-access", "sk-2");
    choose("keySource", std::string("personal"));
    machine.loginItem.current = LoginStatus::enabled;
    const int looks = machine.permissions.looks;
    EXPECT_FALSE(view->launchesAtLogin());
    view->opened();
    EXPECT_TRUE(view->usesPersonalKey());
    EXPECT_TRUE(view->launchesAtLogin());
    EXPECT_GT(machine.permissions.looks, looks);
    EXPECT_TRUE(eventually([&] { return view->hasVeskoAccess(); }));
}

TEST_F(PreferencesViewTest, startAtLoginSaysWhatTheDesktopSays)
{
    open();
    view->setLaunchAtLogin(true);
    EXPECT_TRUE(view->launchesAtLogin());
    EXPECT_EQ(view->notice(), QString());
    machine.loginItem.fails = true;
    view->setLaunchAtLogin(false);
    EXPECT_TRUE(view->launchesAtLogin());
    EXPECT_EQ(view->notice(), QString());
    EXPECT_EQ(model->status().errorMessage(),
        "Launch at login could not be changed. Check Login Items in System Settings.");
    machine.loginItem.current = LoginStatus::requiresApproval;
    view->opened();
    EXPECT_FALSE(view->launchesAtLogin());
    EXPECT_TRUE(view->needsLoginApproval());
    view->openLoginItems();
    view->openPrivacySettings();
    EXPECT_THAT(machine.desktop.openedSettings,
        ElementsAre(SettingsPanel::startup, SettingsPanel::privacy));
}

TEST_F(PreferencesViewTest, theTonesAreHeardWhetherOrNotTheyAreWanted)
{
    choose("soundsEnabled", false);
    open();
    view->previewStartSound();
    view->previewStopSound();
    ASSERT_EQ(machine.cues.played.size(), 2U);
    EXPECT_EQ(machine.cues.played[0].sample, "CaptureStart");
    EXPECT_EQ(machine.cues.played[1].sample, "CaptureStop");
}

TEST_F(PreferencesViewTest, theKeyOfTheGestureIsChosen)
{
    machine.keys.hasFn = false;
    open();
    EXPECT_EQ(view->gestureKey(), QStringLiteral("right_control"));
    EXPECT_THAT(column(view->gestureKeys(), "name"),
        ElementsAre("Right Ctrl", "Right Alt", "Menu", "Pause", "Scroll Lock"));
    view->setGestureKey(QStringLiteral("pause"));
    EXPECT_EQ(view->gestureKey(), QStringLiteral("pause"));
    EXPECT_EQ(stored<std::string>("gestureKey"), "pause");
    machine.keys.hasFn = true;
    EXPECT_EQ(column(view->gestureKeys(), "name").front(), "Function key");
}

TEST_F(PreferencesViewTest, aKeyIsOfferedOnlyWhereTheSessionShowsOne)
{
    open();
    EXPECT_TRUE(view->gestureAdvice().isEmpty());
    EXPECT_FALSE(view->gestureKeys().isEmpty());
    // A desktop whose configuration passes a key of the user's choice on.
    machine.all.offer.desktop = "sway";
    machine.all.offer.allKeys = false;
    machine.all.offer.shortcutLines = "bindsym Pause exec vesko --press";
    EXPECT_TRUE(view->gestureAdvice().isEmpty());
    EXPECT_TRUE(view->gestureKeys().isEmpty());
    // One that passes none on.
    machine.all.offer.desktop = "GNOME";
    machine.all.offer.shortcutLines.clear();
    EXPECT_EQ(view->gestureAdvice().toStdString(),
        "GNOME shows no program the keys that are pressed in another one.");
}

TEST_F(PreferencesViewTest, whatTheFormDependsOnFollowsTheSettings)
{
    open();
    EXPECT_FALSE(view->translates());
    view->setTranslateTo(QStringLiteral("de-DE"));
    EXPECT_TRUE(view->translates());
    EXPECT_TRUE(view->speechModels().isEmpty()); // until the catalogue is loaded
    EXPECT_EQ(view->catalogTitle(), QStringLiteral("Refresh model catalog"));
    model->catalog().refresh();
    EXPECT_EQ(view->catalogTitle(), QStringLiteral("Loading models…"));
    ASSERT_TRUE(eventually([&] { return !model->catalog().loading(); }));
}

TEST_F(PreferencesViewTest, aBuildWithoutAnalyticsSaysSo)
{
    open();
    EXPECT_FALSE(view->analyticsConfigured());
    EXPECT_EQ(view->analyticsNote(),
        QStringLiteral("Analytics is not configured in this build. No events are sent."));
    view->setAnalyticsEnabled(true);
    EXPECT_TRUE(view->analyticsEnabled());
    EXPECT_TRUE(stored<bool>("analyticsConsent"));
    view->setAnalyticsEnabled(false);
    EXPECT_FALSE(view->analyticsEnabled());
}

TEST_F(PreferencesViewTest, theDataFolderIsOpened)
{
    open();
    view->openDataFolder();
    EXPECT_EQ(machine.desktop.openedFolders,
        std::vector<std::filesystem::path>{ machine.all.dataFolder });
}

TEST_F(PreferencesViewTest, aPermissionsNoticeIsShown)
{
    machine.keys.isPermitted = false;
    open();
    view->pressPermission(3);
    EXPECT_TRUE(view->notice().contains(QStringLiteral("Input Monitoring")));
    EXPECT_EQ(restarts, 1);
}

TEST_F(PreferencesViewTest, aNoticeGoesWhenItIsReadOrAfterAWhile)
{
    open();
    view->pressPermission(3);
    ASSERT_NE(view->notice(), QString());
    view->dismissNotice();
    EXPECT_EQ(view->notice(), QString());
    view->pressPermission(3);
    machine.clock.turn(9);
    EXPECT_NE(view->notice(), QString());
    machine.clock.turn(1);
    EXPECT_EQ(view->notice(), QString());
}

TEST_F(PreferencesViewTest, aDesktopWithoutSettingsIsSaidToHaveNone)
{
    machine.desktop.hasSettings = false;
    open();
    view->openPrivacySettings();
    EXPECT_EQ(view->notice().toStdString(),
        "Vesko found no program for your desktop's settings. Please open them yourself.");
}

} // namespace
} // namespace vesko
