#pragma once

#include "VeskoApp/async/Task.h"

#include <unordered_set>

namespace vesko {

// Owns the tasks that an object has spawned. They start at once and run until their first
// suspension; destroying the scope destroys those still suspended, so none wakes up in a dead
// object. Main thread only, and never to be destroyed by one of its own tasks. An exception that
// escapes from a spawned task ends the program.
class TaskScope {
public:
    TaskScope() = default;
    TaskScope(const TaskScope&) = delete;
    TaskScope& operator=(const TaskScope&) = delete;
    ~TaskScope()
    {
        while (!m_frames.empty()) {
            auto frame = std::coroutine_handle<>::from_address(*m_frames.begin());
            m_frames.erase(m_frames.begin());
            frame.destroy();
        }
    }

    void spawn(Task<void> task) { run(*this, std::move(task)); }

    // Whether every spawned task has ended.
    bool idle() const { return m_frames.empty(); }

private:
    struct Runner {
        struct promise_type {
            TaskScope& scope;

            promise_type(TaskScope& owner, Task<void>&)
                : scope(owner)
            {
            }
            Runner get_return_object() { return {}; }
            auto initial_suspend() noexcept
            {
                struct Enter {
                    bool await_ready() noexcept { return false; }
                    bool await_suspend(std::coroutine_handle<promise_type> frame)
                    {
                        frame.promise().scope.m_frames.insert(frame.address());
                        return false;
                    }
                    void await_resume() noexcept { }
                };
                return Enter{};
            }
            auto final_suspend() noexcept
            {
                struct Leave {
                    bool await_ready() noexcept { return false; }
                    void await_suspend(std::coroutine_handle<promise_type> frame) noexcept
                    {
                        frame.promise().scope.m_frames.erase(frame.address());
                        frame.destroy();
                    }
                    void await_resume() noexcept { }
                };
                return Leave{};
            }
            void return_void() { }
            void unhandled_exception() { std::terminate(); }
        };
    };

    static Runner run(TaskScope&, Task<void> task) { co_await std::move(task); }

    std::unordered_set<void*> m_frames;
};

} // namespace vesko
