#pragma once

#include "VeskoApp/async/EventClock.h"

#include <cstdint>
#include <map>
#include <mutex>

namespace vesko {

// A clock that stands still until a test turns it. Turning it calls back what falls due, in its
// order, each at its own moment and, as on any machine, a trifle later. Any thread may read it.
class TestClock final : public EventClock {
public:
    Date now() const override
    {
        const std::scoped_lock lock(m_mutex);
        return m_date;
    }
    double uptime() const override
    {
        const std::scoped_lock lock(m_mutex);
        return std::chrono::duration<double>(m_uptime).count() + m_lateness;
    }

    TimerId arm(double seconds, std::function<void()> callback) override
    {
        const TimerId id = ++m_last;
        const std::scoped_lock lock(m_mutex);
        m_timers.emplace(std::pair(m_uptime + microseconds(seconds), id), std::move(callback));
        return id;
    }
    void disarm(TimerId id) override
    {
        std::erase_if(m_timers, [id](const auto& timer) { return timer.first.second == id; });
    }

    void turn(double seconds)
    {
        const auto target = m_uptime + microseconds(seconds);
        while (!m_timers.empty() && m_timers.begin()->first.first <= target) {
            auto due = m_timers.extract(m_timers.begin());
            advance(due.key().first - m_uptime);
            setLateness(1e-9);
            due.mapped()();
            setLateness(0);
        }
        advance(target - m_uptime);
    }
    // The date is set by hand, as by a user or a time server; the uptime does not follow.
    void changeDate(double seconds)
    {
        const std::scoped_lock lock(m_mutex);
        m_date.time += microseconds(seconds);
    }
    // How many callbacks are to come.
    std::size_t armed() const { return m_timers.size(); }

private:
    using Microseconds = std::chrono::microseconds;

    static Microseconds microseconds(double seconds)
    {
        return std::chrono::ceil<Microseconds>(std::chrono::duration<double>(seconds - 1e-9));
    }
    void setLateness(double seconds)
    {
        const std::scoped_lock lock(m_mutex);
        m_lateness = seconds;
    }
    void advance(Microseconds by)
    {
        const std::scoped_lock lock(m_mutex);
        m_uptime += by;
        m_date.time += by;
    }

    mutable std::mutex m_mutex;
    Date m_date = *Date::parse("2026-11-21T10:52:00Z");
    Microseconds m_uptime = std::chrono::hours(3);
    double m_lateness = 0; // seconds
    TimerId m_last = 0;
    std::map<std::pair<Microseconds, TimerId>, std::function<void()>> m_timers;
};

} // namespace vesko
