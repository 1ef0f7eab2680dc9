#pragma once

#include <QObject>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/platform/Notifications.h"
#include "VeskoApp/platform/StatusItem.h"
#include "VeskoApp/transcription/TranscriptionRun.h"

#include <optional>

namespace vesko {

// Tells by the desktop's notifications what became of a dictation that was not pasted, where
// neither the floating control nor the status icon, or only one of them, is there to say so. Never
// the text itself, unless the user allows it. Main thread.
class Notifier : public QObject {
    Q_OBJECT
    // The notification may show the text; a setting of the user's.
    Q_PROPERTY(bool showsText READ showsText WRITE setShowsText NOTIFY showsTextChanged)

public:
    // What it listens to and reaches; must outlive it.
    struct Neighbours {
        Notifications& notifications;
        const StatusItem& statusItem;
        Capture& capture;
        TranscriptionRun& run;
        TextDelivery& delivery;
        TextCopy& clipboard;
        Preferences& preferences;
        bool floats = true; // the floating control can be shown in this session
    };

    explicit Notifier(const Neighbours& neighbours);
    ~Notifier() override;

    bool showsText() const { return m_to.preferences.notificationsShowText.get(); }
    void setShowsText(bool shows) { m_to.preferences.notificationsShowText.set(shows); }

    // The user wants to see that note.
    std::function<void(const Uuid& note)> openNote;

Q_SIGNALS:
    void showsTextChanged();

private:
    bool isWanted() const;
    void tellNotPasted(const std::string& text, const std::string& message);
    void tellFailed(const std::string& message);
    void act(const std::string& action);

    Neighbours m_to;
    std::optional<Recording> m_recording; // of the last run
    std::string m_text; // that was not pasted, while it may be copied again
};

} // namespace vesko
