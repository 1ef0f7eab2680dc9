#include "VeskoApp/async/Worker.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace vesko {

Worker::Worker()
    : m_home(*this)
{
}

Worker::~Worker()
{
    m_thread.request_stop();
    {
        const std::scoped_lock lock(m_mutex);
        if (m_running)
            m_running->stop.request_stop();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void Worker::post(std::shared_ptr<Job> job)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    if (!m_thread.joinable())
        m_thread = std::jthread([this](const std::stop_token& stop) { loop(stop); });
    m_wake.notify_one();
}

void Worker::loop(const std::stop_token& stop)
{
    while (true) {
        std::shared_ptr<Job> job;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, stop, [this] { return !m_jobs.empty(); });
            if (stop.stop_requested())
                return;
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
            m_running = job;
        }
        // A job whose task is gone before it began has no one left to work for.
        if (!job->stop.stop_requested())
            job->work();
        const std::scoped_lock lock(m_mutex);
        m_running.reset();
        m_finished.push_back(std::move(job));
        QCoreApplication::postEvent(&m_home, new QEvent(QEvent::User));
    }
}

// Each event stands for one finished job.
bool Worker::Home::event(QEvent*)
{
    std::shared_ptr<Job> job;
    {
        const std::scoped_lock lock(m_worker.m_mutex);
        job = std::move(m_worker.m_finished.front());
        m_worker.m_finished.pop_front();
    }
    if (const auto waiting = std::exchange(job->waiting, {}))
        waiting.resume();
    return true;
}

} // namespace vesko
