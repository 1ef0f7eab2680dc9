#pragma once

#include "VeskoApp/async/TaskScope.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>

namespace vesko {

// Lets the main thread's events happen until the condition holds; looks again after each.
// Throws std::runtime_error if that takes longer than anything here may.
inline void runUntil(const std::function<bool()>& condition)
{
    QEventLoop loop;
    QTimer tick; // what other threads change announces itself with no event
    tick.start(2);
    const QDeadlineTimer deadline(30000);
    while (!condition()) {
        if (deadline.hasExpired())
            throw std::runtime_error("What was waited for did not happen");
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
}

// The task's value or exception, as soon as the events have brought it.
template <class T>
T await(Task<T> task)
{
    std::optional<T> value;
    std::exception_ptr failure;
    TaskScope scope;
    scope.spawn([](Task<T> work, auto& result, auto& error) -> Task<> {
        try {
            result = co_await std::move(work);
        } catch (...) {
            error = std::current_exception();
        }
    }(std::move(task), value, failure));
    runUntil([&] { return scope.idle(); });
    if (failure)
        std::rethrow_exception(failure);
    return std::move(*value);
}

inline void await(Task<> task)
{
    await([](Task<> work) -> Task<bool> {
        co_await std::move(work);
        co_return true;
    }(std::move(task)));
}

} // namespace vesko
