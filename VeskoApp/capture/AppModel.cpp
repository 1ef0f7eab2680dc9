#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/capture/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

namespace {

constexpr double openingUnseen = 0.2; // seconds; a sign for less would only flash

} // namespace

Q_LOGGING_CATEGORY(captureLog, "app.vesko.mac.capture")

AppModel::AppModel(Platform& platform, LibraryOpening open, OpenRouterClient client,
    AnalyticsBundle analytics, const AccountDeployment& accounts)
    : m_platform(platform)
    , m_client(std::move(client))
    , m_keychain(platform.secrets)
    , m_preferences(platform.settings, m_keychain, platform.loginItem)
    , m_analytics(platform.settings, platform.clock, std::move(analytics))
    , m_vault(m_keychain)
    , m_identities(platform.browser, platform.clock, accounts.google)
    , m_accounts(accounts, m_vault, m_identities, platform.settings)
    , m_capture(platform.recorder)
    , m_cues(platform.cues)
    , m_apple(platform.recognizer, platform.clock)
    , m_insertionReview(platform.focusedField, platform.clock)
    , m_message(L10N_KEY("Vesko", "Ready to capture"))
    , m_openingShown(platform.clock)
    , m_meter(platform.clock)
    , m_searches(std::make_shared<std::atomic<unsigned>>(0))
    , m_playbackEnd(platform.clock)
{
    m_accounts.onUsage = [this](UsageEvent event) { track(event); };
    m_capture.onFailure = [this](std::string message) { recordingFailed(std::move(message)); };
    connect(&m_preferences, &Preferences::changed, this, [this] {
        if (!m_preferences.learnCorrections.get())
            stopLearning();
    });
    for (const auto changed : { &AppModel::phaseChanged, &AppModel::libraryOpeningChanged })
        connect(this, changed, this, &AppModel::phaseTitleChanged);
    m_accounts.restoreAtLaunch();
    m_tasks.spawn(openLibrary(std::move(open)));
}

AppModel::~AppModel() = default;

std::filesystem::path AppModel::dataRoot(
    const char* environmentValue, const std::filesystem::path& userDataFolder)
{
    if (environmentValue && *environmentValue == '/')
        return environmentValue;
    return userDataFolder / "Vesko";
}

Task<> AppModel::openLibrary(LibraryOpening open)
{
    m_openingShown.start(openingUnseen,
        [this] { assign(m_libraryOpening, true, &AppModel::libraryOpeningChanged); });
    // Captures are dropped until the library is ready, and only the first launch lets them wait
    // for the secret store: whoever dictates at once gets what that launch chooses.
    if (m_platform.settings.empty())
        co_await chooseFirstProvider();
    std::exception_ptr failure;
    try {
        co_await m_store.open(std::move(open));
        co_await refreshLibrary();
        assign(m_libraryReady, true, &AppModel::libraryReadyChanged);
        qCInfo(captureLog, "library_ready");
        // Not before, when it would take its time from the library and nobody could record yet.
        m_capture.prepare();
    } catch (...) {
        failure = std::current_exception();
    }
    m_openingShown.cancel();
    assign(m_libraryOpening, false, &AppModel::libraryOpeningChanged);
    if (failure)
        setErrorMessage(safeMessage(failure));
}

// A fresh machine is to dictate without a key: if nothing has ever been set up and a recogniser is
// installed, the first launch chooses it. Only the first: whatever the user decides later stays.
Task<> AppModel::chooseFirstProvider()
{
    m_platform.settings.set("firstLaunchDone", SettingValue{ true });
    co_await m_preferences.refreshKeys();
    if (m_preferences.hasKey() || m_preferences.hasVeskoAccess()
        || !m_platform.recognizer.supports(m_platform.recognizer.systemLanguage()))
        co_return;
    m_preferences.provider.set("apple");
    if (m_phase == Phase::idle)
        setMessage(L10N_KEY(
            "Vesko", "Ready to capture. Speech is recognized on this computer, without a key."));
}

Task<> AppModel::refreshLibrary()
{
    m_library = co_await m_store.run([](const LibraryStore& store) { return store.snapshot(); });
    Q_EMIT libraryChanged();
    refreshVisibleNotes();
}

void AppModel::track(UsageEvent event)
{
    m_analytics.track(event, m_platform.clock.now());
}

void AppModel::openAddresses(const std::vector<std::string>& addresses)
{
    for (const auto& address : addresses)
        m_identities.handleRedirect(address);
}

CaptureSettings AppModel::settings() const
{
    const std::string& translateTo = m_preferences.translateTo.get();
    return {
        .provider = m_preferences.provider.get(),
        .keySource = m_preferences.keySource.get(),
        .model = m_preferences.sttModel.get(),
        .language = m_preferences.language.get(),
        .cleanup = m_preferences.cleanupEnabled.get(),
        .cleanupModel = m_preferences.cleanupModel.get(),
        .paste = m_preferences.pasteEnabled.get(),
        .dictionary = m_preferences.dictionaryEnabled.get() ? m_library.dictionary
                                                            : SharedArray<DictionaryEntry>{},
        .translateTo = translateTo == "off" ? std::nullopt : std::optional(translateTo),
    };
}

QString AppModel::phaseTitle() const
{
    switch (m_phase) {
    case Phase::idle:
        return m_libraryOpening ? translated(L10N_KEY("Vesko", "Opening library…"))
                                : translated(L10N_KEY("Vesko", "Ready"));
    case Phase::preparing:
        return translated(L10N_KEY("Vesko", "Starting microphone"));
    case Phase::recording:
        return translated(L10N_KEY("Vesko", "Recording"));
    case Phase::processing:
        return translated(L10N_KEY("Vesko", "Transcribing"));
    }
    return {};
}

QString AppModel::messageText() const
{
    return translated(m_message);
}

QString AppModel::errorText() const
{
    return translated(m_errorMessage);
}

QString AppModel::shortcutText() const
{
    return translated(m_shortcutMessage);
}

void AppModel::setPhase(Phase phase)
{
    assign(m_phase, phase, &AppModel::phaseChanged);
}

void AppModel::setMessage(std::string message)
{
    assign(m_message, std::move(message), &AppModel::messageChanged);
}

void AppModel::setErrorMessage(std::string message)
{
    assign(m_errorMessage, std::move(message), &AppModel::errorMessageChanged);
}

void AppModel::report(const std::exception_ptr& failure)
{
    setErrorMessage(safeMessage(failure));
}

void AppModel::setMenuBarIconHidden(bool hidden)
{
    assign(m_menuBarIconHidden, hidden, &AppModel::menuBarIconHiddenChanged);
}

void AppModel::setShortcutMessage(std::string message)
{
    assign(m_shortcutMessage, std::move(message), &AppModel::shortcutMessageChanged);
}

} // namespace vesko
