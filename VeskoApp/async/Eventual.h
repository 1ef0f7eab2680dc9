#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace vesko {

// A value that something already under way will give once. Copies are handles to the same value.
// Set and awaited on the main thread only; may be awaited by one task, before or after it is set.
// A value that is never set leaves its task waiting until the task's owner ends it.
template <class T>
class Eventual {
    struct State {
        std::optional<T> value;
        std::coroutine_handle<> waiting;
    };

public:
    Eventual()
        : m_state(std::make_shared<State>())
    {
    }
    // Already there.
    static Eventual of(T value)
    {
        Eventual eventual;
        eventual.m_state->value.emplace(std::move(value));
        return eventual;
    }

    // Resumes the task that waits, before it returns. A second value is ignored.
    void set(T value) const
    {
        const auto state = m_state;
        if (state->value)
            return;
        state->value.emplace(std::move(value));
        if (const auto waiting = std::exchange(state->waiting, {}))
            waiting.resume();
    }

    auto operator co_await() const
    {
        struct Awaiter {
            std::shared_ptr<State> state;

            explicit Awaiter(std::shared_ptr<State> of)
                : state(std::move(of))
            {
            }
            Awaiter(const Awaiter&) = delete;
            Awaiter& operator=(const Awaiter&) = delete;
            ~Awaiter() { state->waiting = {}; }
            bool await_ready() const { return state->value.has_value(); }
            void await_suspend(std::coroutine_handle<> handle) { state->waiting = handle; }
            T await_resume() { return *state->value; }
        };
        return Awaiter{ m_state };
    }

private:
    std::shared_ptr<State> m_state;
};

} // namespace vesko
