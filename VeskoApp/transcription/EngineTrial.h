#pragma once

#include "VeskoApp/capture/Capture.h"
#include "VeskoApp/transcription/EngineSelection.h"
#include "VeskoApp/transcription/OnDeviceTranscriber.h"

#include <QObject>

#include <filesystem>

namespace vesko {

// Lets the user hear an engine out: a sentence is spoken, and what the engine makes of it is shown
// with the time that it took. Nothing of it is stored. Nothing else is captured meanwhile. Main
// thread; what it is given must outlive it.
class EngineTrial : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString engine READ engine NOTIFY changed) // its id; of the last trial
    Q_PROPERTY(bool listening READ listening NOTIFY changed)
    Q_PROPERTY(bool busy READ busy NOTIFY changed) // listens, or waits for the text
    Q_PROPERTY(QString outcome READ outcome NOTIFY changed) // for the user to read

public:
    struct Neighbours {
        EventClock& clock;
        AudioRecorder& recorder;
        const Preferences& preferences;
        const LibrarySession& library;
        Capture& capture;
        EngineSelection& engines;
        OnDeviceTranscriber& onDevice;
        std::filesystem::path folder; // for the sound, as long as it takes
    };

    explicit EngineTrial(Neighbours neighbours);

    // Removes what a trial that was killed has left in the folder. Any thread.
    static void clear(const std::filesystem::path& folder);

    // Begins to listen, for 12 seconds at most.
    Q_INVOKABLE void start(const QString& id);
    // The sentence has been spoken.
    Q_INVOKABLE void stop();

    const QString& engine() const { return m_engine; }
    bool listening() const { return m_spoken.has_value(); }
    bool busy() const { return m_busy; }
    const QString& outcome() const { return m_outcome; }

Q_SIGNALS:
    void changed();

private:
    class Turn;

    Task<> run(std::string id);
    Task<QString> tried(std::string id);
    void say(const QString& outcome);

    Neighbours m_to;
    QString m_engine;
    QString m_outcome;
    bool m_busy = false;
    std::optional<Eventual<std::monostate>> m_spoken; // while it listens
    Timer m_longest;
    TaskScope m_tasks;
};

} // namespace vesko
