#pragma once

#include "VeskoApp/async/TaskScope.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <exception>
#include <optional>

namespace vesko {

// Turns Qt's event loop until something has become true, here or on another thread; false if it has
// not within half a minute.
template <class Condition>
[[nodiscard]] bool eventually(Condition condition)
{
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(std::chrono::seconds(30));
    QTimer look; // other threads post no event
    look.start(std::chrono::milliseconds(5));
    while (!condition()) {
        if (!deadline.isActive())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

// Turns the event loop as long as there is something in it.
inline void drainEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Runs a task to its end, turning the event loop; gives its value or throws what escaped from it.
template <class T>
T awaited(Task<T> task)
{
    std::optional<T> value;
    std::exception_ptr failure;
    bool ended = false;
    TaskScope scope;
    scope.spawn([](auto inner, auto& into, auto& failed, bool& done) -> Task<> {
        try {
            into.emplace(co_await std::move(inner));
        } catch (...) {
            failed = std::current_exception();
        }
        done = true;
    }(std::move(task), value, failure, ended));
    if (!eventually([&] { return ended; }))
        throw std::runtime_error("the task did not end");
    if (failure)
        std::rethrow_exception(failure);
    return std::move(*value);
}

inline void awaited(Task<> task)
{
    awaited([](Task<> inner) -> Task<bool> {
        co_await std::move(inner);
        co_return true;
    }(std::move(task)));
}

} // namespace vesko
