#pragma once

#include "VeskoApp/account/AccountStore.h"
#include "VeskoApp/account/KeychainSessionVault.h"
#include "VeskoApp/account/SystemIdentityProviders.h"
#include "VeskoApp/analytics/Analytics.h"
#include "VeskoApp/async/Serialized.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/capture/AppleTranscriber.h"
#include "VeskoApp/capture/AudioCapture.h"
#include "VeskoApp/capture/CaptureCues.h"
#include "VeskoApp/capture/CaptureSettings.h"
#include "VeskoApp/capture/LanguageQuestion.h"
#include "VeskoApp/capture/Phase.h"
#include "VeskoApp/insertion/FocusDestination.h"
#include "VeskoApp/insertion/InsertionReview.h"
#include "VeskoApp/platform/Platform.h"
#include "VeskoApp/preferences/Keychain.h"
#include "VeskoApp/preferences/Preferences.h"
#include "VeskoCore/library/LibraryStore.h"
#include "VeskoCore/shell/FnShortcutState.h"
#include "VeskoCore/speech/OpenRouterClient.h"

#include <QObject>
#include <QVariant>

#include <atomic>
#include <functional>
#include <memory>
#include <unordered_map>

namespace vesko {

// The one central controller: turns a trigger into a recording that stands in the library, the
// recording into a transcript, and the transcript into text in the field where the user started.
// It owns the capture's state and a copy of the library for display. Main thread; nothing here
// waits. The platform must outlive it.
class AppModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString phaseTitle READ phaseTitle NOTIFY phaseTitleChanged)
    Q_PROPERTY(bool recording READ isRecording NOTIFY phaseChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY phaseChanged)
    Q_PROPERTY(double elapsed READ elapsed NOTIFY elapsedChanged)
    Q_PROPERTY(double level READ level NOTIFY levelChanged)
    Q_PROPERTY(bool pushToTalk READ pushToTalk NOTIFY pushToTalkChanged)
    Q_PROPERTY(QString message READ messageText NOTIFY messageChanged)
    Q_PROPERTY(QString errorMessage READ errorText NOTIFY errorMessageChanged)
    Q_PROPERTY(QString shortcutMessage READ shortcutText NOTIFY shortcutMessageChanged)
    Q_PROPERTY(QString dictionaryMessage READ dictionaryMessage NOTIFY dictionaryMessageChanged)
    Q_PROPERTY(bool libraryReady READ libraryReady NOTIFY libraryReadyChanged)
    Q_PROPERTY(bool libraryOpening READ libraryOpening NOTIFY libraryOpeningChanged)
    Q_PROPERTY(bool menuBarIconHidden READ menuBarIconHidden NOTIFY menuBarIconHiddenChanged)
    // "options", each with its "tag" and "name", and a "note"; undefined if there is none.
    Q_PROPERTY(QVariant languageQuestion READ shownLanguageQuestion NOTIFY languageQuestionChanged)
    // Rows with "id" and "name".
    Q_PROPERTY(QVariantList sttModels READ shownSTTModels NOTIFY catalogChanged)
    Q_PROPERTY(QVariantList textModels READ shownTextModels NOTIFY catalogChanged)
    Q_PROPERTY(bool catalogLoading READ catalogLoading NOTIFY catalogLoadingChanged)
    Q_PROPERTY(QString catalogMessage READ catalogText NOTIFY catalogMessageChanged)

public:
    // Opens the library by `open`, off the main thread; captures are dropped until it is ready.
    using LibraryOpening = std::move_only_function<std::unique_ptr<LibraryStore>()>;
    AppModel(Platform& platform, LibraryOpening open, OpenRouterClient client,
        AnalyticsBundle analytics = {}, const AccountDeployment& accounts = {});
    ~AppModel() override;

    // The data folder: VESKO_DATA_ROOT if it is an absolute path, else "Vesko" in the user's data
    // folder.
    static std::filesystem::path dataRoot(
        const char* environmentValue, const std::filesystem::path& userDataFolder);

    // The one entry of shortcut, menu and floating control.
    Q_INVOKABLE void toggleDictation();
    // Records into a voice note: the selected note if `append`, else a new one.
    Q_INVOKABLE void recordNote(bool append);
    void handleFn(FnShortcutAction action);
    // Transcribes a stored recording again, with today's settings.
    void retry(const Recording& recording, bool copyWhenDone);
    // Answers the language question. An answer other than what was detected transcribes the
    // recording again, if nothing else is under way.
    Q_INVOKABLE void chooseLanguage(const QString& code);
    // The other answer: the language stays to be detected, and nobody asks again.
    Q_INVOKABLE void keepAutomaticLanguage();
    // Loads both lists of models anew, unless that is under way. The choices of the user stay.
    Q_INVOKABLE void refreshCatalog();
    // Plays a stored recording, or stops it if it is the one that plays.
    void play(const Recording& recording);
    void stopPlayback();

    // What an editor holds of a note and has not on disk.
    struct PendingEdit {
        std::string title;
        std::string body;
        std::string baseBody; // the body that the editing began with

        bool operator==(const PendingEdit&) const = default;
    };
    using Saved = Eventual<std::exception_ptr>; // null when it went well

    // A new text note in the selected project, which is then shown and selected.
    Q_INVOKABLE void newNote();
    // Remembers what was typed into a note until it is saved.
    void setPendingEdit(const Uuid& id, PendingEdit edit);
    const std::unordered_map<Uuid, PendingEdit>& pendingEdits() const { return m_pendingEdits; }
    // Saves an edit. While another is pending by then, that one stays pending; a save that failed
    // leaves it pending too.
    Task<> editNote(Uuid id, PendingEdit edit);
    // The same whatever becomes of the caller; a failure goes to the error line too.
    Saved saveEdit(const Uuid& id, PendingEdit edit);
    void createProject(const std::string& name);
    void renameProject(const Uuid& id, const std::string& name);
    void assign(const Note& note, std::optional<Uuid> project);
    // To the Trash, or from there into nothing.
    void trash(const Note& note, bool permanently);
    void restore(const Note& note);
    // Title and text as the user sees them, what is not saved yet included; none if there is none.
    std::optional<std::string> noteClipboardText(const Uuid& id) const;
    void copyNote(const Uuid& id);
    // The name that is offered for the file of an export.
    static std::string exportName(const Note& note);
    // Writes the note as it is saved to a Markdown file.
    void exportNote(const Uuid& id, const std::filesystem::path& file);
    Q_INVOKABLE void openDataFolder();
    // The user has read the error line.
    Q_INVOKABLE void dismissError() { setErrorMessage({}); }
    // Says in the error line what went wrong elsewhere.
    void report(const std::exception_ptr& failure);
    // The tone of a start, or of a stop, as a capture would play it.
    void previewCue(CaptureCues::Cue cue) { m_cues.play(cue); }

    // Makes the program safe to end: a running capture and what was typed are kept. False if it
    // can't end now.
    Task<bool> prepareToQuit();
    // Takes the corrections of the last review that was not seen to be sent into the dictionary.
    Q_INVOKABLE void learnPendingCorrections();
    // Lets them be.
    Q_INVOKABLE void dismissPendingCorrections();
    // Adds a term to the dictionary or replaces it; `onSaved` is called only if that went well. The
    // outcome stands in the dictionary's line.
    void saveTerm(DictionaryEntry entry, std::function<void()> onSaved);
    void removeTerm(const Uuid& id);
    // These addresses were opened with the program, by whomever.
    void openAddresses(const std::vector<std::string>& addresses);
    // Puts text on the clipboard; false, with the reason in the error line, if that failed.
    bool copy(const std::string& text);

    // Tells usage analytics, if the user allows it, that this happens now.
    void track(UsageEvent event);

    CaptureSettings settings() const;
    Preferences& preferences() { return m_preferences; }
    Analytics& analytics() { return m_analytics; }
    AccountStore& accounts() { return m_accounts; }
    InsertionReview& insertionReview() { return m_insertionReview; }
    const Library& library() const { return m_library; }

    Phase phase() const { return m_phase; }
    QString phaseTitle() const;
    bool isRecording() const { return m_phase == Phase::recording; }
    bool isBusy() const { return m_phase == Phase::preparing || m_phase == Phase::processing; }
    double elapsed() const { return m_elapsed; } // seconds
    double level() const { return m_level; } // 0 to 1, smoothed
    bool pushToTalk() const { return m_pushToTalk; }
    bool libraryReady() const { return m_libraryReady; }
    // The library is being opened, and that takes long enough to be told.
    bool libraryOpening() const { return m_libraryOpening; }
    std::optional<Uuid> playingID() const { return m_playingID; }
    const std::vector<DictionarySuggestion>& pendingCorrections() const
    {
        return m_pendingCorrections;
    }
    const QString& dictionaryMessage() const { return m_dictionaryMessage; }
    const std::optional<LanguageQuestion>& languageQuestion() const { return m_languageQuestion; }
    // Empty until loaded.
    const std::vector<ProviderModel>& sttModels() const { return m_sttModels; }
    const std::vector<ProviderModel>& textModels() const { return m_textModels; }
    bool catalogLoading() const { return m_catalogLoading; }
    const std::string& catalogMessage() const { return m_catalogMessage; } // empty for none
    // The status and error lines, as keys of the catalogues; an empty error line is none.
    const std::string& message() const { return m_message; }
    const std::string& errorMessage() const { return m_errorMessage; }
    const std::string& shortcutMessage() const { return m_shortcutMessage; }
    void setShortcutMessage(std::string message);
    QString messageText() const;
    QString errorText() const;
    QString shortcutText() const;
    QVariant shownLanguageQuestion() const;
    QVariantList shownSTTModels() const;
    QVariantList shownTextModels() const;
    QString catalogText() const;

    // The user has to sign in before a dictation; shows where.
    std::function<void()> onAccountNeeded;

    // What the library window shows: of the notes of a project or of all, or of the Trash, those
    // that contain the query. A search runs beside the main thread, and until it is done the notes
    // stay as they were.
    const SharedArray<Note>& visibleNotes() const;
    // The selected note, if it is visible.
    const Note* selectedNote() const;
    const Note* note(const Uuid& id) const;
    const std::optional<Uuid>& selectedNoteID() const { return m_selectedNoteID; }
    void setSelectedNoteID(std::optional<Uuid> id);
    const std::optional<Uuid>& selectedProjectID() const { return m_selectedProjectID; }
    void setSelectedProjectID(std::optional<Uuid> id);
    bool showingTrash() const { return m_showingTrash; }
    void setShowingTrash(bool showing);
    const std::string& query() const { return m_query; }
    void setQuery(std::string query);
    // The note that was copied a moment ago.
    const std::optional<Uuid>& copiedNoteID() const { return m_copiedNoteID; }

    // The desktop has no place for the status icon, or none that can be seen.
    bool menuBarIconHidden() const { return m_menuBarIconHidden; }
    void setMenuBarIconHidden(bool hidden);

Q_SIGNALS:
    void phaseChanged();
    void phaseTitleChanged();
    void elapsedChanged();
    void levelChanged();
    void pushToTalkChanged();
    void messageChanged();
    void errorMessageChanged();
    void shortcutMessageChanged();
    void pendingCorrectionsChanged();
    void dictionaryMessageChanged();
    void libraryReadyChanged();
    void libraryOpeningChanged();
    void libraryChanged();
    void visibleNotesChanged();
    void selectionChanged(); // of the note, the project or the Trash
    void queryChanged();
    void copiedNoteChanged();
    void menuBarIconHiddenChanged();
    void playingChanged();
    void languageQuestionChanged();
    void catalogChanged();
    void catalogLoadingChanged();
    void catalogMessageChanged();

private:
    // The field of a capture: settled at the trigger, read by the time the text is ready.
    using Destination = Eventual<std::optional<FocusDestination>>;

    // What the secret store gives for a service's key.
    struct KeyOutcome {
        std::optional<std::string> key;
        std::exception_ptr failure;
    };
    using ServiceKey = Eventual<KeyOutcome>;

    struct ActiveCapture {
        Recording recording;
        bool dictation = false; // ends on the clipboard and in a field
        std::optional<Destination> destination;
        CaptureSettings settings;
        std::optional<ServiceKey> key; // being fetched while the user speaks
    };

    // AppModel.cpp
    Task<> openLibrary(LibraryOpening open);
    Task<> chooseFirstProvider();
    Task<> refreshLibrary();
    void setPhase(Phase phase);
    void setMessage(std::string message);
    void setErrorMessage(std::string message);
    template <class Operation>
    Task<> change(Operation operation);
    template <class T>
    void assign(T& field, T value, void (AppModel::*changed)());

    // AppModelCapture.cpp
    Destination captureField();
    Task<> readField(Destination destination);
    Task<> startRecording(std::optional<Uuid> noteID, bool dictation,
        std::optional<Destination> destination, bool fromFn);
    Task<Recording> prepareRecording(std::optional<Uuid> noteID, bool dictation);
    Task<> startFailed(std::optional<Uuid> recordingID, std::string message);
    void meter();
    double endCapture();
    void stopRecording();
    Task<> finishAndTranscribe(ActiveCapture capture, double duration);
    void recordingFailed(std::string message);
    Task<> storeFailure(Uuid recordingID, std::string message);
    void clearFnGesture();

    // AppModelGesture.cpp
    void beginFn();
    void discardFn();
    Task<> keepWithoutTranscription(Uuid recordingID, double duration);
    bool fnTargetsActive() const;

    // AppModelRun.cpp
    Task<> transcribe(Recording recording, CaptureSettings settings,
        std::optional<Destination> destination, bool copyWhenDone,
        std::optional<ServiceKey> early = std::nullopt);
    std::optional<ServiceKey> fetchKey(
        const CaptureSettings& settings, std::optional<ServiceKey> early = std::nullopt);
    Task<> loadKey(std::string account, std::optional<ServiceKey> early, ServiceKey into);
    Task<TranscriptResult> recognize(
        std::filesystem::path audio, CaptureSettings settings, std::optional<ServiceKey> key);
    Task<TranscriptResult> runAttempt(Recording recording, Uuid attemptID,
        std::filesystem::path audio, CaptureSettings settings, std::optional<ServiceKey> key);
    Task<> deliver(std::string text, bool paste, std::optional<Destination> destination);
    Task<> runFailed(Uuid recordingID, std::optional<Uuid> attemptID, std::string message);

    // AppModelLearning.cpp
    void corrected(std::vector<DictionarySuggestion> corrections, bool sent);
    void stopLearning();
    Task<> learn(std::vector<DictionarySuggestion> corrections);
    void setPendingCorrections(std::vector<DictionarySuggestion> corrections);
    Task<> save(DictionaryEntry entry, std::function<void()> onSaved);

    // AppModelTransform.cpp
    Task<TranscriptResult> transformTranscript(
        Uuid recordingID, Uuid attemptID, TranscriptResult result, CaptureSettings settings);
    Task<std::optional<std::string>> transformKey(std::string keySource);

    // AppModelLanguage.cpp
    void askLanguage(const std::string& text, const Recording& recording);
    void setLanguageQuestion(std::optional<LanguageQuestion> question);

    // AppModelCatalog.cpp
    using LoadedModels = Eventual<std::optional<std::vector<ProviderModel>>>;
    Task<> loadCatalog();
    Task<> loadModels(Worker& network, bool transcription, LoadedModels into);

    // AppModelLibrary.cpp
    Task<> createNote();
    Task<> save(Uuid id, PendingEdit edit, Saved saved);
    Task<> deleteNote(Uuid id);
    Task<> showCopied(Uuid id);
    Task<> writeExport(std::string markdown, std::filesystem::path file);

    // AppModelSelection.cpp
    void refreshVisibleNotes();
    Task<> search();

    // AppModelPlayback.cpp
    Task<> startPlayback(Recording recording, Uuid token);

    Platform& m_platform;
    OpenRouterClient m_client;

    Keychain m_keychain;
    Preferences m_preferences;
    Analytics m_analytics;
    KeychainSessionVault m_vault;
    SystemIdentityProviders m_identities;
    AccountStore m_accounts;
    AudioCapture m_capture;
    CaptureCues m_cues;
    AppleTranscriber m_apple;
    InsertionReview m_insertionReview;

    Phase m_phase = Phase::idle;
    double m_elapsed = 0;
    double m_level = 0;
    bool m_pushToTalk = false;
    std::string m_message;
    std::string m_errorMessage;
    std::string m_shortcutMessage;
    QString m_dictionaryMessage;
    std::vector<DictionarySuggestion> m_pendingCorrections;
    bool m_libraryReady = false;
    bool m_libraryOpening = false;
    Timer m_openingShown;
    Library m_library;

    std::optional<ActiveCapture> m_active; // present while recording
    Timer m_meter;
    std::optional<Uuid> m_fnTarget; // the recording that the running gesture may finish
    bool m_fnPendingStart = false; // a gesture asked for a start that is not yet recording
    bool m_fnFinishAfterStart = false; // its key came up during that start
    bool m_fnDiscardPending = false; // it became a combination during that start

    std::optional<LanguageQuestion> m_languageQuestion;

    std::optional<Uuid> m_selectedNoteID;
    std::optional<Uuid> m_selectedProjectID;
    bool m_showingTrash = false;
    std::string m_query;
    mutable std::optional<SharedArray<Note>> m_visibleNotes; // none until asked for
    std::shared_ptr<std::atomic<unsigned>> m_searches; // how many have been asked for
    std::unordered_map<Uuid, PendingEdit> m_pendingEdits;
    // The last that the store was given of a note of which more is pending.
    std::unordered_map<Uuid, PendingEdit> m_sentEdits;
    std::optional<Uuid> m_copiedNoteID;
    bool m_menuBarIconHidden = false;

    std::vector<ProviderModel> m_sttModels;
    std::vector<ProviderModel> m_textModels;
    bool m_catalogLoading = false;
    std::string m_catalogMessage;

    std::optional<Uuid> m_playingID;
    std::optional<Uuid> m_playbackToken; // tells the latest request from a stale one
    Timer m_playbackEnd;

    // Last, so that tasks end before what they use, and the workers before the tasks' objects.
    Serialized<LibraryStore> m_store;
    Worker m_network;
    Worker m_sttCatalog; // the two lists are loaded at the same time, and beside a dictation
    Worker m_textCatalog;
    Worker m_texts; // searches and exports
    TaskScope m_tasks;
};

// What the user does to the library. Where it fails, the copy shows what stands.
template <class Operation>
Task<> AppModel::change(Operation operation)
{
    if (!m_libraryReady)
        co_return;
    try {
        co_await m_store.run(std::move(operation));
    } catch (const std::exception&) {
        report(std::current_exception());
    }
    co_await refreshLibrary();
}

// Observers hear of changes only.
template <class T>
void AppModel::assign(T& field, T value, void (AppModel::*changed)())
{
    if (field == value)
        return;
    field = std::move(value);
    Q_EMIT(this->*changed)();
}

} // namespace vesko
