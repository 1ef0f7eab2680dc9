#pragma once

#include <QObject>
#include <QVariant>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/library/NoteEdits.h"
#include "VeskoApp/preferences/Preferences.h"

namespace vesko {

// What the recordings take, and what goes when it has grown old, if the user has set so: audio
// whose text is there, and notes in the Trash. Ages are rows with "tag" and "name"; "never" is one.
// Main thread.
class Storage : public QObject {
    Q_OBJECT
    // What the recordings take, as the user reads it; empty until it has been measured.
    Q_PROPERTY(QString size READ size NOTIFY sizeChanged)
    Q_PROPERTY(QVariantList recordingAges READ recordingAges CONSTANT)
    Q_PROPERTY(QString recordingAge READ recordingAge NOTIFY agesChanged)
    Q_PROPERTY(QVariantList trashAges READ trashAges CONSTANT)
    Q_PROPERTY(QString trashAge READ trashAge NOTIFY agesChanged)

public:
    Storage(EventClock& clock, LibrarySession& library, NoteEdits& edits, Preferences& preferences,
        StatusLine& status);

    const QString& size() const { return m_size; }
    QVariantList recordingAges() const;
    QString recordingAge() const;
    QVariantList trashAges() const;
    QString trashAge() const;

    Q_INVOKABLE void measure();
    // What is older goes at once, and from then on as it grows old.
    Q_INVOKABLE void setRecordingAge(const QString& tag);
    Q_INVOKABLE void setTrashAge(const QString& tag);
    // All notes in it are gone for good.
    Q_INVOKABLE void emptyTrash();

Q_SIGNALS:
    void sizeChanged();
    void agesChanged();

private:
    void watch();
    Task<> sweep();
    Task<> measured();
    Task<> removeTrash(Date before);

    EventClock& m_clock;
    LibrarySession& m_library;
    NoteEdits& m_edits;
    Preferences& m_preferences;
    StatusLine& m_status;
    QString m_size;
    Timer m_next;

    // Last, so that tasks end before what they use.
    Worker m_worker;
    TaskScope m_tasks;
};

} // namespace vesko
