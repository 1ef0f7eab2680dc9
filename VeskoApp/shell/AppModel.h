#pragma once

#include "VeskoApp/account/KeychainSessionVault.h"
#include "VeskoApp/account/SystemIdentityProviders.h"
#include "VeskoApp/dictionary/DictionaryTerms.h"
#include "VeskoApp/exchange/LibraryExchange.h"
#include "VeskoApp/library/NoteActions.h"
#include "VeskoApp/notes/Playback.h"
#include "VeskoApp/notifications/Notifier.h"
#include "VeskoApp/platform/Platform.h"
#include "VeskoApp/storage/Storage.h"
#include "VeskoApp/transcription/ModelCatalog.h"
#include "VeskoApp/transcription/ModelDownloads.h"
#include "VeskoApp/transcription/TranscriptionRun.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vesko {

// The program without its windows: makes its parts in the order in which they need each other, and
// joins them. Each part is handed what it uses; who shows one to the user takes it from here. Main
// thread; the platform must outlive it.
class AppModel {
public:
    // Opens the library by `open`, off the main thread; captures are dropped until it is ready.
    AppModel(Platform& platform, LibrarySession::Opening open, const OpenRouterClient& client,
        AnalyticsBundle analytics = {}, const AccountDeployment& accounts = {},
        ModelSource models = {});
    AppModel(const AppModel&) = delete;
    AppModel& operator=(const AppModel&) = delete;
    ~AppModel();

    // The data folder: VESKO_DATA_ROOT if it is an absolute path, else "Vesko" in the user's data
    // folder.
    static std::filesystem::path dataRoot(
        const char* environmentValue, const std::filesystem::path& userDataFolder);

    // Makes the program safe to end: a running capture and what was typed are kept. False if it
    // can't end now.
    Task<bool> prepareToQuit();
    // These addresses were opened with the program, by whomever.
    void openAddresses(const std::vector<std::string>& addresses);

    StatusLine& status() { return m_status; }
    Preferences& preferences() { return m_preferences; }
    Analytics& analytics() { return m_analytics; }
    AccountStore& accounts() { return m_accounts; }
    LibrarySession& library() { return m_library; }
    NoteSelection& selection() { return m_selection; }
    NoteEdits& edits() { return m_edits; }
    NoteActions& notes() { return m_notes; }
    LibraryExchange& exchange() { return m_exchange; }
    Storage& storage() { return m_storage; }
    DictionaryTerms& terms() { return m_terms; }
    InsertionReview& review() { return m_review; }
    TextCopy& clipboard() { return m_clipboard; }
    CaptureCues& cues() { return m_cues; }
    Capture& capture() { return m_capture; }
    Playback& playback() { return m_playback; }
    LanguageInquiry& language() { return m_language; }
    TranscriptionRun& run() { return m_run; }
    ModelCatalog& catalog() { return m_catalog; }
    ModelDownloads& downloads() { return m_downloads; }
    Keychain& keychain() { return m_keychain; }
    EngineSelection& engines() { return m_engines; }
    OnDeviceTranscriber& onDevice() { return m_onDevice; }
    Notifier& notifier() { return m_notifier; }

private:
    Task<> start(LibrarySession::Opening open);
    Task<> chooseFirstProvider();

    Platform& m_platform;
    StatusLine m_status;

    Keychain m_keychain;
    ServiceKeys m_keys;
    Preferences m_preferences;
    Analytics m_analytics;
    KeychainSessionVault m_vault;
    SystemIdentityProviders m_identities;
    AccountStore m_accounts;

    LibrarySession m_library;
    NoteSelection m_selection;
    NoteEdits m_edits;
    TextCopy m_clipboard;
    NoteActions m_notes;
    LibraryExchange m_exchange;
    Storage m_storage;

    InsertionReview m_review;
    DictionaryTerms m_terms;
    TextDelivery m_delivery;

    EngineSelection m_engines;
    OnDeviceTranscriber m_onDevice;
    CaptureCues m_cues;
    Capture m_capture;
    Playback m_playback;

    TranscriptTransform m_transform;
    LanguageInquiry m_language;
    TranscriptionRun m_run;
    ModelCatalog m_catalog;
    ModelDownloads m_downloads;
    Notifier m_notifier;

    TaskScope m_tasks; // last, so that tasks end before what they use
};

} // namespace vesko
