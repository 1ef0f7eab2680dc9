#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/library/NoteEdits.h"
#include "VeskoApp/notes/RecordingListModel.h"

#include <QObject>
#include <QPointer>
#include <QTextDocument>

namespace vesko {

// One note being edited. What is typed is a pending edit at once, is saved soon after, and survives
// the editor. A transcript that lands in the note shows at once, or, while there is something to
// save, with the next save. Main thread; what it is given must outlive it.
class NoteEditor : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString noteID READ noteID CONSTANT)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(QString titlePrompt READ titlePrompt CONSTANT)
    Q_PROPERTY(bool saved READ saved NOTIFY savedChanged)
    Q_PROPERTY(bool trashed READ trashed NOTIFY noteChanged)
    Q_PROPERTY(QString projectID READ projectID NOTIFY noteChanged)
    Q_PROPERTY(QObject* recordings READ recordings CONSTANT)
    Q_PROPERTY(int recordingCount READ recordingCount NOTIFY noteChanged)

public:
    // How long a letter may wait until its save begins, unless one is under way.
    static constexpr double saveDelay = 0.35; // seconds

    NoteEditor(
        NoteEdits& edits, const LibrarySession& library, EventClock& clock, const Note& note);
    ~NoteEditor() override;

    // Shows the body in a document, which the user then edits; once.
    void attach(QTextDocument& document);
    // Saves what is not saved, without waiting for it.
    void flush();
    // Takes in the note as the library has it now.
    void refresh(const Note& note);

    const Uuid& id() const { return m_id; }
    QString noteID() const { return QString::fromStdString(m_id.text()); }
    QString title() const { return QString::fromStdString(m_title); }
    void setTitle(const QString& title);
    QString titlePrompt() const;
    const std::string& text() const { return m_text; }
    bool dirty() const { return m_dirty; }
    bool saved() const { return m_saved; }
    bool trashed() const { return m_trashed; }
    QString projectID() const;
    QObject* recordings() { return &m_recordings; }
    const RecordingListModel& recordingList() const { return m_recordings; }
    int recordingCount() const { return m_recordings.rowCount(); }

Q_SIGNALS:
    void titleChanged();
    void savedChanged();
    void noteChanged();
    // Around a change of the document that is not the user's, at this position of it.
    void merging(int position);
    void merged(int position);

private:
    void documentChanged();
    void showText();
    void scheduleSave();
    void save();
    Task<> saveChange(unsigned change);
    void setSaved(bool saved);
    NoteEdits::PendingEdit draft() const { return { m_title, m_text, m_baseBody }; }

    NoteEdits& m_edits;
    const LibrarySession& m_library;
    Uuid m_id;
    NoteKind m_kind;
    std::string m_title;
    std::string m_text;
    std::string m_baseBody; // the body from which the editing started
    bool m_trashed = false;
    std::optional<Uuid> m_projectID;
    RecordingListModel m_recordings;

    QPointer<QTextDocument> m_document;
    QString m_shown; // the document's text, as far as it has been taken in
    bool m_merging = false;

    bool m_dirty = false;
    bool m_saved = false;
    unsigned m_changes = 0; // of the user's
    std::optional<unsigned> m_savingChange; // the last one in the save under way
    Timer m_saveTimer;
    TaskScope m_tasks;
};

} // namespace vesko
