#pragma once

#include "VeskoApp/async/TaskScope.h"

#include <QEventLoop>
#include <QTimer>

#include <exception>
#include <optional>

namespace vesko {

// Runs a task to its end, turning the event loop of a QCoreApplication: for a command, which has
// nothing else to do meanwhile. Gives its value, or throws what escaped from it.
template <class T>
T waitedFor(Task<T> task)
{
    std::optional<T> value;
    std::exception_ptr failure;
    QEventLoop loop;
    TaskScope scope;
    // From within the loop, which a task that ends at once would quit in vain before.
    QTimer::singleShot(0, &loop, [&] {
        scope.spawn([](Task<T> inner, auto& into, auto& failed, QEventLoop& until) -> Task<> {
            try {
                into.emplace(co_await std::move(inner));
            } catch (...) {
                failed = std::current_exception();
            }
            until.quit();
        }(std::move(task), value, failure, loop));
    });
    loop.exec();
    if (failure)
        std::rethrow_exception(failure);
    return std::move(*value);
}

} // namespace vesko
