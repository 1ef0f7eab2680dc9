#pragma once

#include <QObject>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/Serialized.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/status/StatusLine.h"
#include "VeskoCore/library/LibraryStore.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>

namespace vesko {

// The library as the program sees it: the store on a thread of its own, and a copy of what stands
// in it. There is one way to change it, `change`, and whoever wants to know hears `changed`.
// Main thread; nothing here waits.
class LibrarySession : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool ready READ ready NOTIFY readyChanged)
    Q_PROPERTY(bool opening READ opening NOTIFY openingChanged)

public:
    using Opening = std::move_only_function<std::unique_ptr<LibraryStore>()>;
    template <class T>
    using Outcome = std::expected<T, std::exception_ptr>;

    LibrarySession(EventClock& clock, StatusLine& status);

    // The library is about to be opened, which is told if it takes long enough to be seen.
    void expect();
    // Opens it, off the main thread; once. False, with the reason in the error line, if that fails.
    Task<bool> open(Opening open);

    // Runs operation(LibraryStore&) on the store's thread, and takes the copy anew whatever comes
    // of it: where it fails, the copy shows what stands. Gives its result or its failure, which is
    // VeskoError::storage before the library is ready.
    template <class Operation>
    Task<Outcome<std::invoke_result_t<Operation&, LibraryStore&>>> change(Operation operation);
    // A change whose result nobody waits for. A failure goes to the error line; before the library
    // is ready nothing happens.
    template <class Operation>
    void apply(Operation operation);
    // Where the recording's audio is. Throws VeskoError.
    Task<std::filesystem::path> audioFile(Recording recording);

    bool ready() const { return m_ready; }
    // Why it could not be opened, as the error line says it; empty if it was not tried in vain.
    const std::string& refusal() const { return m_refusal; }
    // It is being opened, and that takes long enough to be told.
    bool opening() const { return m_opening; }
    const Library& contents() const { return m_contents; }
    const Note* note(const Uuid& id) const; // null if there is none

Q_SIGNALS:
    void readyChanged(); // or it has been refused
    void openingChanged();
    void changed(); // the copy was taken anew

private:
    template <class Operation>
    Task<> applied(Operation operation);
    void show(Library contents);

    StatusLine& m_status;
    Library m_contents;
    bool m_ready = false;
    bool m_opening = false;
    std::string m_refusal;
    Timer m_openingShown;

    // Last, so that tasks end before what they use.
    Serialized<LibraryStore> m_store;
    TaskScope m_tasks;
};

template <class Operation>
Task<LibrarySession::Outcome<std::invoke_result_t<Operation&, LibraryStore&>>>
LibrarySession::change(Operation operation)
{
    using Result = std::invoke_result_t<Operation&, LibraryStore&>;
    if (!m_ready)
        co_return std::unexpected(std::make_exception_ptr(VeskoError(VeskoError::storage)));
    auto [outcome, contents] = co_await m_store.run(
        [operation = std::move(operation)](
            LibraryStore& store) mutable -> std::pair<Outcome<Result>, Library> {
            Outcome<Result> result;
            try {
                if constexpr (std::is_void_v<Result>)
                    operation(store);
                else
                    result = operation(store);
            } catch (...) {
                result = std::unexpected(std::current_exception());
            }
            return { std::move(result), store.snapshot() };
        });
    show(std::move(contents));
    if (outcome)
        m_status.withdraw(VeskoError(VeskoError::storage).errorDescription());
    co_return std::move(outcome);
}

template <class Operation>
void LibrarySession::apply(Operation operation)
{
    if (m_ready)
        m_tasks.spawn(applied(std::move(operation)));
}

template <class Operation>
Task<> LibrarySession::applied(Operation operation)
{
    const auto outcome = co_await change(std::move(operation));
    if (!outcome)
        m_status.report(outcome.error());
}

} // namespace vesko
