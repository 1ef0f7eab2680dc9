#include "VeskoApp/exchange/DictionaryExchange.h"

#include "VeskoApp/exchange/UserPaths.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/InputFile.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/UserFile.h"
#include "VeskoCore/exchange/DictionaryCsv.h"

#include <QFileInfo>

#include <system_error>
#include <utility>

namespace vesko {

namespace {

constexpr std::uint64_t largestTable = 16 << 20; // bytes

FileChooser::Question tableQuestion(const char* title, const char* agree)
{
    return { .title = translated(title).toStdString(),
        .agree = translated(agree).toStdString(),
        .file = wholePath(DictionaryExchange::exportPath()).toStdString(),
        .kind = "CSV",
        .pattern = "*.csv" };
}

std::vector<DictionaryRow> readTable(const std::filesystem::path& path)
{
    auto& files = FileSystem::posix();
    const auto file = InputFile::open(files, fileBehindLinks(files, path), largestTable);
    if (!file)
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    return readDictionaryCsv(file->text());
}

// A library of nothing but these terms.
Library libraryOf(const std::vector<DictionaryRow>& rows, Date now)
{
    Library library;
    for (const auto& row : rows)
        library.dictionary.append({ .id = Uuid::random(),
            .original = row.original,
            .replacement = row.replacement,
            .enabled = row.enabled,
            .source = DictionaryEntry::Source::manual,
            .createdAt = now });
    return library;
}

} // namespace

DictionaryExchange::DictionaryExchange(EventClock& clock, FileChooser& fileChooser,
    LibrarySession& library, DictionaryTerms& terms, QObject* owner)
    : QObject(owner)
    , m_clock(clock)
    , m_fileChooser(fileChooser)
    , m_library(library)
    , m_terms(terms)
{
}

QString DictionaryExchange::exportPath()
{
    return writtenPath(offeredFile(QStringLiteral("vesko-dictionary.csv")));
}

bool DictionaryExchange::replacesFile(const QString& path)
{
    return QFileInfo::exists(wholePath(path));
}

void DictionaryExchange::chooseExport(QWindow* above)
{
    if (above && m_library.ready())
        m_tasks.spawn(exportChosen(m_fileChooser.save(
            tableQuestion(L10N_KEY("Vesko", "Export dictionary…"), L10N_KEY("Vesko", "Save")),
            *above)));
}

void DictionaryExchange::chooseImport(QWindow* above)
{
    if (above && m_library.ready())
        m_tasks.spawn(importChosen(m_fileChooser.open(
            tableQuestion(L10N_KEY("Vesko", "Import dictionary…"), L10N_KEY("Vesko", "Import")),
            *above)));
}

Task<> DictionaryExchange::exportChosen(Eventual<FileChooser::Answer> chosen)
{
    const auto answer = co_await chosen;
    if (answer.outcome == FileChooser::Answer::chosen)
        co_await exportAll(answer.file);
    else if (answer.outcome == FileChooser::Answer::unavailable)
        Q_EMIT exportPathWanted();
}

Task<> DictionaryExchange::importChosen(Eventual<FileChooser::Answer> chosen)
{
    const auto answer = co_await chosen;
    if (answer.outcome == FileChooser::Answer::chosen)
        co_await importAll(answer.file);
    else if (answer.outcome == FileChooser::Answer::unavailable)
        Q_EMIT importPathWanted();
}

void DictionaryExchange::exportTo(const QString& path)
{
    if (m_library.ready())
        m_tasks.spawn(exportAll(wholePath(path).toStdString()));
}

void DictionaryExchange::importFrom(const QString& path)
{
    if (m_library.ready())
        m_tasks.spawn(importAll(wholePath(path).toStdString()));
}

Task<> DictionaryExchange::exportAll(std::filesystem::path file)
{
    try {
        co_await m_worker.run([terms = m_library.contents().dictionary, file = std::move(file)] {
            writeUserFile(FileSystem::posix(), file, dictionaryCsv(terms));
        });
        m_terms.say(translated(L10N_KEY("Vesko", "Dictionary exported")));
    } catch (...) {
        tell(std::current_exception());
    }
}

Task<> DictionaryExchange::importAll(std::filesystem::path file)
{
    try {
        const auto rows
            = co_await m_worker.run([file = std::move(file)] { return readTable(file); });
        const auto came = co_await m_library.change(
            [terms = libraryOf(rows, m_clock.now())](LibraryStore& store) {
                const auto before = store.snapshot().dictionary.size();
                store.merge(terms);
                return store.snapshot().dictionary.size() - before;
            });
        if (came)
            m_terms.say(translated(L10N_KEY("Vesko", "Terms imported: %1")).arg(*came));
        else
            tell(came.error());
    } catch (...) {
        tell(std::current_exception());
    }
}

void DictionaryExchange::tell(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const VeskoError& error) {
        // Of the table itself; what it says of single terms would not help here.
        m_terms.say(error.kind() == VeskoError::invalidDictionary
                ? translated(L10N_KEY("Vesko", "This file is no table of terms."))
                : translated(safeMessage(failure)));
    } catch (...) {
        m_terms.say(translated(safeMessage(failure)));
    }
}

} // namespace vesko
