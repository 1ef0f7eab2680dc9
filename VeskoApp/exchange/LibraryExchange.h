#pragma once

#include <QObject>
#include <QWindow>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/library/LibrarySession.h"
#include "VeskoApp/platform/FileChooser.h"

#include <memory>

namespace vesko {

// Takes the whole library out into one archive, and such an archive in. It goes on beside all else,
// one at a time, and can be followed and cancelled; what came of it stands in the status line or
// the error line. Paths are as a user writes them. Main thread.
class LibraryExchange : public QObject {
    Q_OBJECT
    // What goes on, in the user's words; empty while nothing does.
    Q_PROPERTY(QString work READ work NOTIFY workChanged)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged) // 0 to 1

public:
    LibraryExchange(
        EventClock& clock, FileChooser& fileChooser, LibrarySession& library, StatusLine& status);

    const QString& work() const { return m_work; }
    double progress() const { return m_progress; }

    // Ask in the desktop's dialog, above that window, and go on with what is chosen.
    Q_INVOKABLE void chooseExport(QWindow* above);
    Q_INVOKABLE void chooseImport(QWindow* above);
    // Where an export goes if the user has no better idea.
    Q_INVOKABLE QString exportPath() const;
    // Whether an export to that path would replace a file.
    Q_INVOKABLE static bool replacesFile(const QString& path);
    // Nothing happens while something goes on, or before the library is ready.
    Q_INVOKABLE void exportTo(const QString& path);
    Q_INVOKABLE void importFrom(const QString& path);
    // What goes on ends soon, without a trace.
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void workChanged();
    void progressChanged();
    // The desktop has no dialog: the window has to ask for a path.
    void exportPathWanted();
    void importPathWanted();

private:
    struct Watch;

    FileChooser::Question question(const char* title, const char* agree) const;
    Task<> exportChosen(Eventual<FileChooser::Answer> chosen);
    Task<> importChosen(Eventual<FileChooser::Answer> chosen);
    Task<> exportAll(std::filesystem::path file);
    Task<> importAll(std::filesystem::path file);
    Task<std::filesystem::path> recordings();
    bool begin(const char* work);
    void end(const std::string& message, const std::exception_ptr& failure);
    void follow();
    Task<> clearRemains();

    EventClock& m_clock;
    FileChooser& m_fileChooser;
    LibrarySession& m_library;
    StatusLine& m_status;
    QString m_work;
    double m_progress = 0;
    std::shared_ptr<Watch> m_watch; // shared with the worker
    Timer m_tick;

    // Last, so that tasks end before what they use.
    Worker m_worker;
    TaskScope m_tasks;
};

} // namespace vesko
