#pragma once

#include "VeskoApp/account/AccountStore.h"
#include "VeskoApp/capture/AudioCapture.h"
#include "VeskoApp/capture/CaptureCues.h"
#include "VeskoApp/capture/CaptureSettings.h"
#include "VeskoApp/capture/Phase.h"
#include "VeskoApp/insertion/TextDelivery.h"
#include "VeskoApp/library/NoteSelection.h"
#include "VeskoApp/platform/Hearing.h"
#include "VeskoApp/preferences/ServiceKeys.h"
#include "VeskoCore/shell/FnShortcutState.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace vesko {

// A recording that is under way, or stands whole in the library, with what was settled when it
// began.
struct CapturedRecording {
    Recording recording;
    bool dictation = false; // ends on the clipboard and in a field
    std::optional<Destination> destination;
    CaptureSettings settings;
    std::optional<ServiceKey> key; // being fetched while the user speaks
    // Works on the recording while it is made; null where nothing does.
    std::unique_ptr<Hearing> heard;
};

// Turns a trigger into a recording that stands in the library: the phase, the microphone, the
// meter, and what the gesture key means for them. The note and the recording are on disk before
// the audio file exists, while the sound is held in memory; and a press of the gesture key leaves
// no trace until it can't be the beginning of an ordinary combination any more. Main thread;
// nothing here waits.
class Capture : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString phaseTitle READ phaseTitle NOTIFY phaseTitleChanged)
    Q_PROPERTY(bool recording READ isRecording NOTIFY phaseChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY phaseChanged)
    // Where the words of the running dictation will go, as the user reads it; empty until that is
    // known.
    Q_PROPERTY(QString target READ target NOTIFY targetChanged)
    // What is being done to the recording can be given up.
    Q_PROPERTY(bool canGiveUp READ canGiveUp NOTIFY canGiveUpChanged)
    Q_PROPERTY(double elapsed READ elapsed NOTIFY elapsedChanged)
    Q_PROPERTY(double level READ level NOTIFY levelChanged)

public:
    // What it reaches; must outlive it.
    struct Neighbours {
        EventClock& clock;
        AudioRecorder& recorder;
        FocusedField& focusedField;
        CaptureCues& cues;
        LibrarySession& library;
        NoteSelection& selection;
        const Preferences& preferences;
        const AccountStore& accounts;
        ServiceKeys& keys;
        Analytics& analytics;
        StatusLine& status;
    };

    explicit Capture(const Neighbours& neighbours);

    // What can be made ready before the first trigger is.
    void prepare() { m_audio.prepare(); }
    // The one entry of shortcut, menu and floating control.
    Q_INVOKABLE void toggleDictation();
    // Records into a voice note: the selected note if `append`, else a new one.
    Q_INVOKABLE void recordNote(bool append);
    // Ends a running recording, which is kept without being transcribed, or gives up what is being
    // done to one. False if there is nothing to cancel.
    Q_INVOKABLE bool cancel();
    void handleFn(FnShortcutAction action);
    // The press that began a capture was a tap: no key can join it any more.
    void fnTapped() { m_fn.settled.set(true); }

    // A stored recording is about to be transcribed again: nothing else is captured until that has
    // ended. False if something is under way.
    bool beginProcessing();
    // What is being done to the recording, from transcribing it on.
    enum class Processing { transcribing, cleaningUp, translating };
    void setProcessing(Processing step);
    // What share of the recording has become text, 0 to 1.
    void setTranscribed(double share);
    // From now on, and until the processing has ended or goes on without a way back (null), the
    // user can give it up; endProcessing is due then too.
    void offerToGiveUp(std::function<void()> giveUp);
    // What followed the recording has ended, or waits for the user: another may be captured.
    void endProcessing();
    // Given with the next change of the phase, once everyone else has heard of it.
    Eventual<std::monostate> nextPhase();

    // Ends a running recording and keeps it. False if the program can't end now.
    Task<bool> prepareToQuit();

    Phase phase() const { return m_phase; }
    QString phaseTitle() const;
    bool isRecording() const { return m_phase == Phase::recording; }
    bool isBusy() const { return m_phase == Phase::preparing || m_phase == Phase::processing; }
    const QString& target() const { return m_target; }
    bool willPaste() const { return m_willPaste; } // the target is a field
    double elapsed() const { return m_elapsed; } // seconds
    double level() const { return m_level; } // 0 to 1, smoothed
    bool pushToTalk() const { return m_pushToTalk; }
    bool canGiveUp() const { return m_giveUp != nullptr; }

    // Begins to work on a recording that is about to be made; null where that waits for the file.
    std::function<std::unique_ptr<Hearing>(const CaptureSettings&)> hear;
    // A recording is whole and saved as such; endProcessing is due in the end.
    std::function<void(CapturedRecording)> onCaptured;
    // The user has to sign in before a dictation; shows where.
    std::function<void()> onAccountNeeded;

Q_SIGNALS:
    void starting(); // the microphone is about to open
    void phaseChanged();
    void phaseTitleChanged();
    void targetChanged();
    void canGiveUpChanged();
    void elapsedChanged();
    void levelChanged();
    void pushToTalkChanged();

private:
    // What the running gesture wants.
    struct FnGesture {
        Eventual<bool> settled; // whether it means a capture, or is a combination of keys
        std::optional<Uuid> target; // the recording that it may finish
        bool pendingStart = false; // it asked for a start that is not yet recording
        bool finishAfterStart = false; // its key came up during that start
        bool discardPending = false; // it became a combination during that start
    };

    void setPhase(Phase phase);
    void setTarget(const QString& target, bool isField);
    Destination captureField();
    Task<> readField(Destination destination);
    Task<> start(std::optional<Uuid> noteID, bool dictation, std::optional<Destination> destination,
        bool fromFn);
    Task<Recording> prepareRecording(std::optional<Uuid> noteID, bool dictation);
    Task<> startFailed(std::optional<Uuid> recordingID, std::string message);
    Task<> giveUpStart();
    void meter();
    void noteStall(bool stalled);
    double endCapture();
    void stop();
    Task<> finish(CapturedRecording captured, double duration);
    void failed(std::string message);
    Task<> storeFailure(Uuid recordingID, std::string message);
    void stopWithoutTranscription(std::string message);
    Task<> keepWithoutTranscription(Uuid recordingID, double duration, std::string message);
    Task<LibrarySession::Outcome<void>> save(Uuid recordingID, double duration);

    // CaptureGesture.cpp
    void beginFn();
    void discardFn();
    bool fnTargetsActive() const;
    void clearFn();
    void setPushToTalk(bool on);

    Neighbours m_to;
    AudioCapture m_audio;
    Phase m_phase = Phase::idle;
    Processing m_processing = Processing::transcribing;
    int m_transcribed = 0; // per cent
    std::function<void()> m_giveUp;
    QString m_target;
    bool m_willPaste = false;
    double m_elapsed = 0;
    double m_level = 0;
    bool m_pushToTalk = false;
    bool m_opened = false; // the microphone, in this start: it leaves traces from then on
    double m_begunAt = 0; // uptime of the first sound
    std::optional<CapturedRecording> m_active; // present while recording
    std::optional<Eventual<bool>> m_saving; // whether what was recorded last is kept, while it is
                                            // being saved
    Timer m_meter;
    FnGesture m_fn;
    TaskScope m_tasks;
};

} // namespace vesko
