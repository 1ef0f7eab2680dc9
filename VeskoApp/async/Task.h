#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <utility>

namespace vesko {

template <class T>
class Task;

namespace detail {

// Hands control back to whoever awaits the task, on the same stack depth.
struct TaskPromiseBase {
    std::coroutine_handle<> awaiting = std::noop_coroutine();
    std::exception_ptr failure;

    std::suspend_always initial_suspend() noexcept { return {}; }
    auto final_suspend() noexcept
    {
        struct Return {
            std::coroutine_handle<> to;
            bool await_ready() noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<>) noexcept { return to; }
            void await_resume() noexcept { }
        };
        return Return{ awaiting };
    }
    void unhandled_exception() { failure = std::current_exception(); }
};

template <class T>
struct TaskPromise : TaskPromiseBase {
    std::optional<T> value;

    Task<T> get_return_object();
    void return_value(T result) { value.emplace(std::move(result)); }
    T take()
    {
        if (failure)
            std::rethrow_exception(failure);
        return std::move(*value);
    }
};

template <>
struct TaskPromise<void> : TaskPromiseBase {
    Task<void> get_return_object();
    void return_void() { }
    void take()
    {
        if (failure)
            std::rethrow_exception(failure);
    }
};

} // namespace detail

// The result of a coroutine on the main thread. It is lazy: nothing runs until it is awaited or
// spawned into a TaskScope. It owns its coroutine: destroying the Task destroys the suspended
// frame with all that stands in it, and what it was waiting for forgets it.
template <class T = void>
class [[nodiscard]] Task {
public:
    using promise_type = detail::TaskPromise<T>;

    explicit Task(std::coroutine_handle<promise_type> frame)
        : m_frame(frame)
    {
    }
    Task(Task&& other) noexcept
        : m_frame(std::exchange(other.m_frame, {}))
    {
    }
    Task& operator=(Task&&) = delete;
    ~Task()
    {
        if (m_frame)
            m_frame.destroy();
    }

    // Runs the coroutine; gives its value or throws what escaped from it. Once only.
    auto operator co_await() &&
    {
        struct Awaiter {
            std::coroutine_handle<promise_type> frame;
            bool await_ready() { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<> awaiting)
            {
                frame.promise().awaiting = awaiting;
                return frame;
            }
            T await_resume() { return frame.promise().take(); }
        };
        return Awaiter{ m_frame };
    }

private:
    std::coroutine_handle<promise_type> m_frame;
};

template <class T>
Task<T> detail::TaskPromise<T>::get_return_object()
{
    return Task<T>{ std::coroutine_handle<TaskPromise<T>>::from_promise(*this) };
}

inline Task<void> detail::TaskPromise<void>::get_return_object()
{
    return Task<void>{ std::coroutine_handle<TaskPromise<void>>::from_promise(*this) };
}

} // namespace vesko
