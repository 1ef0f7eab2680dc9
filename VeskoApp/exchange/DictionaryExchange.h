#pragma once

#include <QObject>
#include <QWindow>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/dictionary/DictionaryTerms.h"
#include "VeskoApp/platform/FileChooser.h"

#include <exception>

namespace vesko {

// Takes the dictionary out as a table of other programs, and such a table in. What came of it
// stands in the dictionary's line. Paths are as a user writes them. Main thread.
class DictionaryExchange : public QObject {
    Q_OBJECT

public:
    DictionaryExchange(EventClock& clock, FileChooser& fileChooser, LibrarySession& library,
        DictionaryTerms& terms, QObject* owner);

    // Ask in the desktop's dialog, above that window, and go on with what is chosen.
    Q_INVOKABLE void chooseExport(QWindow* above);
    Q_INVOKABLE void chooseImport(QWindow* above);
    // Where an export goes if the user has no better idea.
    Q_INVOKABLE static QString exportPath();
    // Whether an export to that path would replace a file.
    Q_INVOKABLE static bool replacesFile(const QString& path);
    Q_INVOKABLE void exportTo(const QString& path);
    // Terms that are there, or that nobody could type, stay out.
    Q_INVOKABLE void importFrom(const QString& path);

Q_SIGNALS:
    // The desktop has no dialog: the window has to ask for a path.
    void exportPathWanted();
    void importPathWanted();

private:
    Task<> exportChosen(Eventual<FileChooser::Answer> chosen);
    Task<> importChosen(Eventual<FileChooser::Answer> chosen);
    Task<> exportAll(std::filesystem::path file);
    Task<> importAll(std::filesystem::path file);
    void tell(const std::exception_ptr& failure);

    EventClock& m_clock;
    FileChooser& m_fileChooser;
    LibrarySession& m_library;
    DictionaryTerms& m_terms;

    // Last, so that tasks end before what they use.
    Worker m_worker;
    TaskScope m_tasks;
};

} // namespace vesko
