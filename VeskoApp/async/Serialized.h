#pragma once

#include "VeskoApp/async/Worker.h"

namespace vesko {

// An object whose operations run one at a time, in the order they were asked for, on a thread of
// its own. Made, used and destroyed on the main thread.
template <class T>
class Serialized {
public:
    // co_await open(make): makes the object by make() -> std::unique_ptr<T>, on its thread.
    template <class Make>
    auto open(Make make)
    {
        return m_worker.run([this, make = std::move(make)]() mutable { m_value = make(); });
    }

    // co_await run(f): f(T&) on the object's thread. Only after open has succeeded.
    template <class Operation>
    auto run(Operation operation)
    {
        return m_worker.run(
            [this, operation = std::move(operation)]() mutable { return operation(*m_value); });
    }

private:
    std::unique_ptr<T> m_value; // outlives the worker
    Worker m_worker;
};

} // namespace vesko
