#include "VeskoApp/shell/AppModel.h"

#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/transcription/EngineTrial.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

namespace {

const std::string firstLaunchDone = "firstLaunchDone";

constexpr const char* waitsForKeys = L10N_KEY("Vesko",
    "Ready to capture. Speech is recognized on this computer until your password store (keyring) "
    "says whether it holds a key.");

} // namespace

AppModel::AppModel(Platform& platform, LibrarySession::Opening open, const OpenRouterClient& client,
    AnalyticsBundle analytics, const AccountDeployment& accounts, ModelSource models)
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
          .clipboard = m_clipboard,
          .status = m_status })
    , m_engines(platform.speechEngines, m_preferences, m_keychain)
    , m_onDevice(platform.recognizer, platform.clock)
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
    , m_transform(client, m_library)
    , m_language(platform.textLanguage, platform.preferredLanguages, m_preferences, m_status)
    , m_run({ .clock = platform.clock,
                .capture = m_capture,
                .engines = m_engines,
                .onDevice = m_onDevice,
                .gate = platform.speechGate,
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
    , m_downloads(std::move(models))
    , m_notifier({ .notifications = platform.notifications,
          .statusItem = platform.statusItem,
          .capture = m_capture,
          .run = m_run,
          .delivery = m_delivery,
          .clipboard = m_clipboard,
          .preferences = m_preferences,
          .floats = platform.offer.floats })
{
    m_accounts.onUsage = [this](UsageEvent event) { m_analytics.track(event); };
    QObject::connect(&m_capture, &Capture::starting, &m_capture, [this] { m_review.stop(); });
    m_capture.onCaptured = [this](CapturedRecording captured) { m_run.start(std::move(captured)); };
    m_capture.hear = [this](const CaptureSettings& settings) { return m_run.listen(settings); };
    const auto getReadyToPaste = [this] {
        if (m_capture.isRecording() && m_capture.willPaste())
            m_platform.pasteKeystroke.prepare();
        else if (m_capture.phase() == Phase::idle)
            m_platform.pasteKeystroke.release();
    };
    QObject::connect(&m_capture, &Capture::phaseChanged, &m_capture, getReadyToPaste);
    QObject::connect(&m_capture, &Capture::targetChanged, &m_capture, getReadyToPaste);
    m_delivery.onCorrections = [this](std::vector<DictionarySuggestion> corrections, bool sent) {
        m_terms.corrected(std::move(corrections), sent);
    };
    m_language.speaks = [this](const std::string& tag) {
        return m_preferences.provider.get() != "apple" || m_platform.recognizer.supports(tag);
    };
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
    if (m_platform.settings.empty()
        || !m_platform.settings.get<bool>(firstLaunchDone).value_or(true))
        m_tasks.spawn(chooseFirstProvider());
    // The library is nobody else's from then on.
    const bool opened = co_await m_library.open(
        [open = std::move(open), folder = m_platform.dataFolder]() mutable {
            auto store = open();
            EngineTrial::clear(folder);
            return store;
        });
    if (!opened)
        co_return;
    qCInfo(captureLog, "library_ready");
    // Not before, when it would take its time from the library and nobody could record yet.
    m_capture.prepare();
}

// A fresh machine is to dictate without a key: if nothing has ever been set up and a recogniser is
// installed, the first launch chooses it, the best engine of those that are there. Only the first:
// whatever the user decides later stays. The secret store may be long in telling whether there is a
// key. Whoever dictates meanwhile is heard on this machine, and a start that ends before the answer
// leaves the choice to the next.
Task<> AppModel::chooseFirstProvider()
{
    m_platform.settings.set(firstLaunchDone, SettingValue{ false });
    auto& provider = m_preferences.provider;
    const auto language = m_platform.recognizer.systemLanguage();
    const bool chosen = m_platform.settings.get<std::string>("provider").has_value();
    const bool assumed = !chosen && m_platform.recognizer.supports(language);
    const auto usersChoice = [&] { return chosen || (assumed && !provider.assumed()); };
    if (assumed) {
        provider.assume("apple");
        m_status.setMessage(waitsForKeys);
    }
    co_await m_preferences.refreshKeys();
    m_platform.settings.set(firstLaunchDone, SettingValue{ true });
    const bool hasKey = m_preferences.hasKey() || m_preferences.hasVeskoAccess();
    if (!hasKey && !usersChoice() && !m_platform.settings.get<std::string>("engine"))
        co_await m_engines.chooseBest(language);
    if (usersChoice())
        co_return;
    const bool onDevice = !hasKey && m_platform.recognizer.supports(language);
    if (onDevice)
        provider.set("apple");
    else
        provider.assume(std::nullopt);
    const bool waited = m_status.message() == waitsForKeys;
    if (onDevice && (waited || m_capture.phase() == Phase::idle))
        m_status.setMessage(L10N_KEY(
            "Vesko", "Ready to capture. Speech is recognized on this computer, without a key."));
    else if (waited)
        m_status.setMessage(L10N_KEY("Vesko", "Ready to capture"));
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
