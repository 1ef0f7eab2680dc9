#pragma once

#include <QObject>

#include <condition_variable>
#include <coroutine>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <variant>

namespace vesko {

// One thread that runs jobs for tasks of the main thread, first in, first out, one at a time.
// Made, used and destroyed on the main thread. Destroying it drops the jobs that have not begun,
// asks the running one to stop and waits for it.
class Worker {
public:
    Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker();

    // co_await worker.run(f) runs f() or f(std::stop_token) on the worker and gives its result, or
    // throws its exception, on the main thread. Destroying the awaiting task requests a stop and
    // drops the result.
    template <class Function>
    auto run(Function function);

private:
    struct Job {
        virtual ~Job() = default;
        virtual void work() = 0;
        std::stop_source stop;
        std::coroutine_handle<> waiting; // touched on the main thread only
    };
    template <class Function>
    struct TypedJob;
    template <class Function>
    class Awaiter;

    // Where the worker's news reach the main thread; events posted to it die with it.
    class Home : public QObject {
    public:
        explicit Home(Worker& worker)
            : m_worker(worker)
        {
        }
        bool event(QEvent*) override;

    private:
        Worker& m_worker;
    };

    void post(std::shared_ptr<Job> job);
    void loop(const std::stop_token& stop);

    Home m_home;
    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    std::deque<std::shared_ptr<Job>> m_jobs;
    std::shared_ptr<Job> m_running;
    // Jobs, with the results they hold, die on the main thread only.
    std::deque<std::shared_ptr<Job>> m_finished;
    std::jthread m_thread; // from the first job on
};

template <class Function>
struct Worker::TypedJob : Job {
    static constexpr bool stoppable = std::is_invocable_v<Function&, std::stop_token>;
    template <bool takesToken, class F>
    struct ResultOf : std::invoke_result<F&> { };
    template <class F>
    struct ResultOf<true, F> : std::invoke_result<F&, std::stop_token> { };
    using Result = typename ResultOf<stoppable, Function>::type;
    using Value = std::conditional_t<std::is_void_v<Result>, std::monostate, Result>;

    std::optional<Function> function;
    std::optional<Value> value;
    std::exception_ptr failure;

    explicit TypedJob(Function f)
        : function(std::move(f))
    {
    }
    Result call()
    {
        if constexpr (stoppable)
            return (*function)(stop.get_token());
        else
            return (*function)();
    }
    void work() override
    {
        try {
            if constexpr (std::is_void_v<Result>) {
                call();
                value.emplace();
            } else {
                value.emplace(call());
            }
        } catch (...) {
            failure = std::current_exception();
        }
        function.reset();
    }
};

template <class Function>
class Worker::Awaiter {
    using Typed = TypedJob<Function>;

public:
    Awaiter(Worker& worker, Function function)
        : m_worker(worker)
        , m_job(std::make_shared<Typed>(std::move(function)))
    {
    }
    Awaiter(const Awaiter&) = delete;
    Awaiter& operator=(const Awaiter&) = delete;
    ~Awaiter()
    {
        if (m_job->waiting) {
            m_job->waiting = {};
            m_job->stop.request_stop();
        }
    }
    bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> waiting)
    {
        m_job->waiting = waiting;
        m_worker.post(m_job);
    }
    typename Typed::Result await_resume()
    {
        if (m_job->failure)
            std::rethrow_exception(m_job->failure);
        if constexpr (!std::is_void_v<typename Typed::Result>)
            return std::move(*m_job->value);
    }

private:
    Worker& m_worker;
    std::shared_ptr<Typed> m_job;
};

template <class Function>
auto Worker::run(Function function)
{
    return Awaiter<Function>(*this, std::move(function));
}

} // namespace vesko
