#include "VeskoApp/shell/AppModel.h"

#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

AppModel::AppModel(Platform& platform, LibrarySession::Opening open, const OpenRouterClient& client,
    AnalyticsBundle analytics, const AccountDeployment& accounts)
    : m_platform(platform)
    , m_keychain(platform.secrets)
    , m_keys(m_keychain)
    , m_preferences(platform.settings, m_keychain, platform.loginItem)
    , m_analytics(platform.settings, platform.clock, std::move(analytics))
    , m_vault(m_keychain)
    , m_identities(platform.browser, platform.clock, accounts.google)
    , m_accounts(accounts, m_vault, m_identities, platform.settings)
    , m_library(platform.clock, m_status)
    , m_selection(m_library)
    , m_edits(m_library, m_status)
    , m_clipboard(platform.clipboard, m_analytics, m_status)
    , m_notes(platform.clock, m_library, m_selection, m_edits, m_clipboard, m_analytics, m_status)
    , m_exchange(platform.clock, platform.fileChooser, m_library, m_status)
    , m_storage(platform.clock, m_library, m_edits, m_preferences, m_status)
    , m_review(platform.focusedField, platform.clock)
    , m_terms(m_library, m_preferences, m_review, m_status)
    , m_delivery({ .clock = platform.clock,
          .focusedField = platform.focusedField,
          .pasteKeystroke = platform.pasteKeystroke,
          .preferences = m_preferences,
          .review = m_review,
          .terms = m_terms,
          .clipboard = m_clipboard,
          .status = m_status })
    , m_cues(platform.cues)
    , m_capture({ .clock = platform.clock,
          .recorder = platform.recorder,
          .focusedField = platform.focusedField,
          .cues = m_cues,
          .library = m_library,
          .selection = m_selection,
          .preferences = m_preferences,
          .accounts = m_accounts,
          .keys = m_keys,
          .analytics = m_analytics,
          .status = m_status })
    , m_playback(platform.player, platform.clock, m_library, m_capture, m_status)
    , m_onDevice(platform.recognizer, platform.clock)
    , m_transform(client, m_keys, m_library)
    , m_language(platform.textLanguage, platform.preferredLanguages, m_preferences, m_status)
    , m_run({ .capture = m_capture,
                .onDevice = m_onDevice,
                .transform = m_transform,
                .language = m_language,
                .delivery = m_delivery,
                .library = m_library,
                .preferences = m_preferences,
                .keys = m_keys,
                .analytics = m_analytics,
                .status = m_status },
          client)
    , m_catalog(client)
    , m_notifier({ .notifications = platform.notifications,
          .statusItem = platform.statusItem,
          .capture = m_capture,
          .run = m_run,
          .delivery = m_delivery,
          .clipboard = m_clipboard,
          .preferences = m_preferences })
{
    m_accounts.onUsage = [this](UsageEvent event) { m_analytics.track(event); };
    QObject::connect(&m_capture, &Capture::starting, &m_capture, [this] { m_review.stop(); });
    m_capture.onCaptured = [this](CapturedRecording captured) { m_run.start(std::move(captured)); };
    m_language.redo = [this](const Recording& recording) { return m_run.retry(recording, true); };
    m_accounts.restoreAtLaunch();
    m_tasks.spawn(start(std::move(open)));
}

AppModel::~AppModel() = default;

std::filesystem::path AppModel::dataRoot(
    const char* environmentValue, const std::filesystem::path& userDataFolder)
{
    if (environmentValue && *environmentValue == '/')
        return environmentValue;
    return userDataFolder / "Vesko";
}

Task<> AppModel::start(LibrarySession::Opening open)
{
    m_library.expect();
    // Captures are dropped until the library is ready, and only the first launch lets them wait
    // for the secret store: whoever dictates at once gets what that launch chooses.
    if (m_platform.settings.empty())
        co_await chooseFirstProvider();
    if (!co_await m_library.open(std::move(open)))
        co_return;
    qCInfo(captureLog, "library_ready");
    // Not before, when it would take its time from the library and nobody could record yet.
    m_capture.prepare();
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
    if (m_capture.phase() == Phase::idle)
        m_status.setMessage(L10N_KEY(
            "Vesko", "Ready to capture. Speech is recognized on this computer, without a key."));
}

Task<bool> AppModel::prepareToQuit()
{
    co_return co_await m_capture.prepareToQuit() && co_await m_edits.saveAll();
}

void AppModel::openAddresses(const std::vector<std::string>& addresses)
{
    for (const auto& address : addresses)
        m_identities.handleRedirect(address);
}

} // namespace vesko
