#pragma once

#include "VeskoApp/library/NoteActions.h"
#include "VeskoApp/platform/FileChooser.h"

#include <QObject>
#include <QTemporaryDir>
#include <QWindow>

#include <memory>

namespace vesko {

// What is done with the notes that are selected, one or several; where they went to can be taken
// back for a while, for all of them at once. Main thread.
class SelectedNotes : public QObject {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    // Of several: how many they are, and the questions before they go.
    Q_PROPERTY(QString title READ title NOTIFY countChanged)
    Q_PROPERTY(QString trashQuestion READ trashQuestion NOTIFY countChanged)
    Q_PROPERTY(QString removeQuestion READ removeQuestion NOTIFY countChanged)
    // What undo() would take back; empty for nothing.
    Q_PROPERTY(QString undoText READ undoText NOTIFY undoChanged)

public:
    // What it reaches; must outlive it.
    SelectedNotes(EventClock& clock, FileChooser& fileChooser, LibrarySession& library,
        NoteSelection& selection, NoteActions& notes, StatusLine& status);

    int count() const { return static_cast<int>(m_selection.selectedNotes().size()); }
    QString title() const;
    QString trashQuestion() const;
    QString removeQuestion() const;
    QString undoText() const;

    // To a project, or out of all for no id.
    Q_INVOKABLE void assign(const QString& projectID);
    Q_INVOKABLE void trash();
    Q_INVOKABLE void restore();
    Q_INVOKABLE void deletePermanently();
    // Drags them with the mouse; returns when they have been dropped, while events go on. Our own
    // places then say which of them it was.
    Q_INVOKABLE void drag();
    Q_INVOKABLE void dropOnProject(const QString& projectID);
    Q_INVOKABLE void dropOnTrash();
    // Puts the notes back where they were a moment ago, and selects what comes out of the Trash.
    Q_INVOKABLE void undo();
    // Asks in the desktop's dialog, above that window, for a folder to export each of them to.
    Q_INVOKABLE void chooseExport(QWindow* above);
    // The folder if the user has no better idea: a path, "~" for the home folder.
    Q_INVOKABLE QString exportPath() const;
    Q_INVOKABLE void exportTo(const QString& path);

Q_SIGNALS:
    void countChanged();
    void undoChanged();
    // The desktop has no dialog for that: the window has to ask for a path.
    void exportPathWanted();

private:
    // Where notes went a moment ago, and where each was before.
    struct Move {
        LibraryStore::Places from;
        bool toTrash = false;
        std::optional<Uuid> project; // unless to the Trash
    };

    std::set<Uuid> ids() const;
    void move(const std::set<Uuid>& ids, std::optional<Uuid> project);
    void trash(const std::set<Uuid>& ids);
    void expect(Move move);
    bool isDone(const Move& move) const;
    void lookAtMoved();
    Task<> exportInto(std::set<Uuid> ids, Eventual<FileChooser::Answer> chosen);

    FileChooser& m_fileChooser;
    LibrarySession& m_library;
    NoteSelection& m_selection;
    NoteActions& m_notes;
    StatusLine& m_status;
    std::set<Uuid> m_dragged;
    std::shared_ptr<const QTemporaryDir>
        m_dragFolder; // of the last drag: files are read long after
    std::optional<Move> m_moved; // here
    Timer m_undoEnd;
    TaskScope m_tasks;
};

} // namespace vesko
