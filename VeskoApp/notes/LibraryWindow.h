#pragma once

#include "VeskoApp/library/NoteActions.h"
#include "VeskoApp/notes/NoteEditor.h"
#include "VeskoApp/notes/NoteListModel.h"
#include "VeskoApp/notes/Playback.h"
#include "VeskoApp/notes/SelectedNotes.h"
#include "VeskoApp/platform/Desktop.h"
#include "VeskoApp/platform/FileChooser.h"
#include "VeskoApp/transcription/TranscriptionRun.h"

#include <QObject>
#include <QVariant>
#include <QWindow>

#include <memory>

namespace vesko {

// What the library window shows and does. Ids are texts here; an empty one is none. Main thread.
class LibraryWindow : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* notes READ notes CONSTANT)
    Q_PROPERTY(int noteCount READ noteCount NOTIFY notesChanged)
    Q_PROPERTY(QString listTitle READ listTitle NOTIFY sidebarChanged)
    Q_PROPERTY(bool showingTrash READ showingTrash NOTIFY sidebarChanged)
    Q_PROPERTY(QString selectedProjectID READ selectedProjectID NOTIFY sidebarChanged)
    // Rows with "id" and "name".
    Q_PROPERTY(QVariantList projects READ projects NOTIFY sidebarChanged)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    // What is done with all that are selected.
    Q_PROPERTY(QObject* selected READ selected CONSTANT)
    // The one that the keyboard goes on from.
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY notesChanged)
    // The editor of the note that is selected alone, or none: an array, so that each has a view of
    // its own.
    Q_PROPERTY(QVariantList editors READ editors NOTIFY editorChanged)
    // "title", "text", "button" and "makesNote", whether that is what the button does, while no
    // note is listed, else nothing.
    Q_PROPERTY(QVariant emptyState READ emptyState NOTIFY emptyStateChanged)
    Q_PROPERTY(QString statusLine READ statusLine NOTIFY statusLineChanged)
    Q_PROPERTY(QString copiedNoteID READ copiedNoteID NOTIFY copiedChanged)
    // What plays, of which position, speed and wave are shown.
    Q_PROPERTY(QObject* playback READ playback CONSTANT)
    Q_PROPERTY(QString playingID READ playingID NOTIFY playingChanged)
    // What the error line says while the library can't be opened; empty for none.
    Q_PROPERTY(QString refusal READ refusal NOTIFY stateChanged)
    Q_PROPERTY(bool opening READ opening NOTIFY stateChanged)
    Q_PROPERTY(bool canCreate READ canCreate NOTIFY stateChanged)
    Q_PROPERTY(bool canRecord READ canRecord NOTIFY stateChanged)
    Q_PROPERTY(QString recordText READ recordText NOTIFY stateChanged)

public:
    // What it shows and reaches; must outlive it.
    struct Neighbours {
        EventClock& clock;
        FileChooser& fileChooser;
        Desktop& desktop;
        std::filesystem::path dataFolder;
        LibrarySession& library;
        NoteSelection& selection;
        NoteEdits& edits;
        NoteActions& notes;
        Capture& capture;
        Playback& playback;
        TranscriptionRun& run;
        TextCopy& clipboard;
        StatusLine& status;
    };

    explicit LibraryWindow(const Neighbours& neighbours);
    ~LibraryWindow() override;

    QObject* notes() { return &m_notes; }
    SelectedNotes* selected() { return &m_selected; }
    QObject* playback() { return &m_to.playback; }
    const NoteListModel& noteList() const { return m_notes; }
    NoteEditor* editor() { return m_editor.get(); }

    int noteCount() const { return m_notes.rowCount(); }
    QString listTitle() const;
    bool showingTrash() const { return m_to.selection.showingTrash(); }
    QString selectedProjectID() const;
    QVariantList projects() const;
    QString query() const { return QString::fromStdString(m_to.selection.query()); }
    void setQuery(const QString& query) { m_to.selection.setQuery(query.toStdString()); }
    int selectedRow() const;
    QVariantList editors() const;
    QVariant emptyState() const;
    QString statusLine() const;
    QString copiedNoteID() const;
    QString playingID() const;
    // Why there is no library, in the user's words; empty if it was not refused.
    QString refusal() const;
    // The library is not there yet, which takes a while.
    bool opening() const { return m_to.library.opening(); }
    bool canCreate() const { return m_to.library.ready(); }
    bool canRecord() const { return m_to.library.ready() && !m_to.capture.isBusy(); }
    QString recordText() const;

    Q_INVOKABLE void showAllNotes();
    Q_INVOKABLE void showTrash();
    Q_INVOKABLE void showProject(const QString& id);
    // With the modifiers of the key or the click: Shift extends the selection to that row, Control
    // adds the row or takes it away.
    Q_INVOKABLE void selectRow(int row, int modifiers = 0);
    // Drags all that are selected, or the row if it isn't, as SelectedNotes::drag does.
    Q_INVOKABLE void dragRow(int row);
    Q_INVOKABLE void selectAll() { m_to.selection.selectAll(); }
    // What the button of the empty state does, unless it makes a note.
    Q_INVOKABLE void fillEmptyState();
    // Renames the project, or makes a new one if there is no id.
    Q_INVOKABLE void saveProject(const QString& renameID, const QString& name);

    // On the selected note.
    Q_INVOKABLE void copyNote();
    // Asks in the desktop's dialog, above that window, where to export the note to, and exports it.
    Q_INVOKABLE void chooseExport(QWindow* above);
    // Where an export goes if the user has no better idea: a path, "~" for the home folder.
    Q_INVOKABLE QString exportPath() const;
    // Whether an export to that path would replace a file.
    Q_INVOKABLE static bool replacesFile(const QString& path);
    Q_INVOKABLE void exportNote(const QString& path);
    Q_INVOKABLE void play(const QString& recordingID);
    // Shows its file in the file manager.
    Q_INVOKABLE void showInFolder(const QString& recordingID);
    Q_INVOKABLE void retry(const QString& recordingID);
    Q_INVOKABLE void copyText(const QString& text) { m_to.clipboard.copy(text.toStdString()); }

Q_SIGNALS:
    void notesChanged();
    void sidebarChanged();
    void queryChanged();
    void editorChanged();
    void emptyStateChanged();
    void statusLineChanged();
    void copiedChanged();
    void playingChanged();
    void stateChanged();
    // A new note is being made, which is to be typed into; and it is selected, or could not be
    // made.
    void newNoteBegun();
    void newNoteEnded(bool made);
    // The desktop has no dialog for an export: the window has to ask for a path.
    void exportPathWanted();

private:
    void showNotes();
    void showEditor();
    Task<> show(Recording recording);
    Task<> exportTo(Uuid id, Eventual<FileChooser::Answer> chosen);

    Neighbours m_to;
    NoteListModel m_notes;
    std::unique_ptr<NoteEditor> m_editor;
    SelectedNotes m_selected;
    TaskScope m_tasks;
};

} // namespace vesko
