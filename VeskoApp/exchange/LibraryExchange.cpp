#include "VeskoApp/exchange/LibraryExchange.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/exchange/UserPaths.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/exchange/LibraryExport.h"
#include "VeskoCore/exchange/LibraryImport.h"

#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <system_error>
#include <utility>

namespace vesko {

namespace {

constexpr double tick = 0.1; // seconds

bool isCancelled(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const ExchangeFailure& reason) {
        return reason.kind == ExchangeFailure::cancelled;
    } catch (...) {
        return false;
    }
}

bool saysFull(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::system_error& error) {
        return error.code() == std::errc::no_space_on_device
            || error.code() == std::errc::file_too_large
            || error.code() == std::error_code(EDQUOT, std::generic_category());
    } catch (...) {
        return false;
    }
}

} // namespace

// How far the worker is, and whether it may go on.
struct LibraryExchange::Watch {
    std::atomic<double> progress = 0;
    std::atomic<bool> cancelled = false;

    ExchangeWatch during(std::stop_token stop)
    {
        return { [this](double done) { progress = done; },
            [this, stop = std::move(stop)] { return cancelled || stop.stop_requested(); } };
    }
};

LibraryExchange::LibraryExchange(
    EventClock& clock, FileChooser& fileChooser, LibrarySession& library, StatusLine& status)
    : m_clock(clock)
    , m_fileChooser(fileChooser)
    , m_library(library)
    , m_status(status)
    , m_tick(clock)
{
    connect(&library, &LibrarySession::readyChanged, this, [this] {
        if (m_library.ready())
            m_tasks.spawn(clearRemains());
    });
}

QString LibraryExchange::exportPath() const
{
    const auto day = m_clock.now().text().substr(0, 10);
    return writtenPath(
        offeredFile(QStringLiteral("vesko-%1.zip").arg(QString::fromStdString(day))));
}

bool LibraryExchange::replacesFile(const QString& path)
{
    return QFileInfo::exists(wholePath(path));
}

FileChooser::Question LibraryExchange::question(const char* title, const char* agree) const
{
    return { .title = translated(title).toStdString(),
        .agree = translated(agree).toStdString(),
        .file = wholePath(exportPath()).toStdString(),
        .kind = "ZIP",
        .pattern = "*.zip" };
}

void LibraryExchange::chooseExport(QWindow* above)
{
    if (above && m_library.ready() && !m_watch)
        m_tasks.spawn(exportChosen(m_fileChooser.save(
            question(L10N_KEY("Vesko", "Export library…"), L10N_KEY("Vesko", "Save")), *above)));
}

void LibraryExchange::chooseImport(QWindow* above)
{
    if (above && m_library.ready() && !m_watch)
        m_tasks.spawn(importChosen(m_fileChooser.open(
            question(L10N_KEY("Vesko", "Import library…"), L10N_KEY("Vesko", "Import")), *above)));
}

Task<> LibraryExchange::exportChosen(Eventual<FileChooser::Answer> chosen)
{
    const auto answer = co_await chosen;
    if (answer.outcome == FileChooser::Answer::chosen)
        co_await exportAll(answer.file);
    else if (answer.outcome == FileChooser::Answer::unavailable)
        Q_EMIT exportPathWanted();
}

Task<> LibraryExchange::importChosen(Eventual<FileChooser::Answer> chosen)
{
    const auto answer = co_await chosen;
    if (answer.outcome == FileChooser::Answer::chosen)
        co_await importAll(answer.file);
    else if (answer.outcome == FileChooser::Answer::unavailable)
        Q_EMIT importPathWanted();
}

void LibraryExchange::exportTo(const QString& path)
{
    m_tasks.spawn(exportAll(wholePath(path).toStdString()));
}

void LibraryExchange::importFrom(const QString& path)
{
    m_tasks.spawn(importAll(wholePath(path).toStdString()));
}

void LibraryExchange::cancel()
{
    if (m_watch)
        m_watch->cancelled = true;
}

Task<> LibraryExchange::exportAll(std::filesystem::path file)
{
    if (!begin(L10N_KEY("Vesko", "Exporting the library…")))
        co_return;
    std::exception_ptr failure;
    try {
        auto folder = co_await recordings();
        co_await m_worker.run([library = m_library.contents(), folder = std::move(folder),
                                  file = std::move(file), watch = m_watch](std::stop_token stop) {
            exportLibrary(library, folder, file, watch->during(std::move(stop)));
        });
    } catch (...) {
        failure = std::current_exception();
    }
    end(L10N_KEY("Vesko", "Library exported"), failure);
}

Task<> LibraryExchange::importAll(std::filesystem::path file)
{
    if (!begin(L10N_KEY("Vesko", "Importing…")))
        co_return;
    std::exception_ptr failure;
    std::string message;
    try {
        auto folder = co_await recordings();
        auto unpacked = co_await m_worker.run(
            [here = m_library.contents(), folder = std::move(folder), file = std::move(file),
                watch = m_watch](std::stop_token stop) {
                return std::make_unique<LibraryImport>(
                    here, folder, file, watch->during(std::move(stop)));
            });
        // It goes with the operation, on the store's thread: removing files may take a while.
        const auto came
            = co_await m_library.change([unpacked = std::move(unpacked)](LibraryStore& store) {
                  return unpacked->joinTo(store);
              });
        if (came)
            message = *came == 0
                ? L10N_KEY("Vesko", "All notes of this archive are here already.")
                : translated(L10N_KEY("Vesko", "Notes imported: %1")).arg(*came).toStdString();
        else
            failure = came.error();
    } catch (...) {
        failure = std::current_exception();
    }
    end(message, failure);
}

Task<std::filesystem::path> LibraryExchange::recordings()
{
    co_return (co_await m_library.audioFile(Recording::make({}, {}, {}))).parent_path();
}

bool LibraryExchange::begin(const char* work)
{
    if (!m_library.ready() || m_watch)
        return false;
    m_watch = std::make_shared<Watch>();
    assign(*this, m_progress, 0.0, &LibraryExchange::progressChanged);
    assign(*this, m_work, translated(work), &LibraryExchange::workChanged);
    follow();
    return true;
}

void LibraryExchange::follow()
{
    assign(*this, m_progress, m_watch->progress.load(), &LibraryExchange::progressChanged);
    m_tick.start(tick, [this] { follow(); });
}

void LibraryExchange::end(const std::string& message, const std::exception_ptr& failure)
{
    m_tick.cancel();
    m_watch = nullptr;
    assign(*this, m_work, QString(), &LibraryExchange::workChanged);
    if (!failure)
        m_status.setMessage(message);
    else if (isCancelled(failure))
        m_status.setMessage(safeMessage(failure));
    else if (saysFull(failure))
        m_status.setErrorMessage(L10N_KEY(
            "Vesko", "There is not enough room on the disk. Your saved files were preserved."));
    else
        m_status.report(failure);
}

Task<> LibraryExchange::clearRemains()
{
    try {
        auto folder = co_await recordings();
        co_await m_worker.run(
            [folder = std::move(folder)] { LibraryImport::clearRemains(folder); });
    } catch (const std::exception&) {
        // The next start does it.
    }
}

} // namespace vesko
