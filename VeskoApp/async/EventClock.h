#pragma once

#include "VeskoCore/base/Clock.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace vesko {

// A clock that can also call back. Arming, disarming and the callbacks happen on the main thread.
class EventClock : public Clock {
public:
    using TimerId = std::uint64_t; // never 0

    // Calls back once, no sooner than `seconds` of uptime from now.
    virtual TimerId arm(double seconds, std::function<void()> callback) = 0;
    // The callback will not come. Does nothing for one that has come.
    virtual void disarm(TimerId id) = 0;
};

// One pending callback, which its owner may replace or drop at any time, from within the callback
// too.
class Timer {
public:
    explicit Timer(EventClock& clock)
        : m_clock(clock)
    {
    }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() { cancel(); }

    // In place of whatever was pending.
    void start(double seconds, std::function<void()> callback)
    {
        cancel();
        m_id = m_clock.arm(seconds, [this, callback = std::move(callback)] {
            m_id = 0;
            callback();
        });
    }
    void cancel()
    {
        if (m_id)
            m_clock.disarm(std::exchange(m_id, 0));
    }
    bool pending() const { return m_id != 0; }

private:
    EventClock& m_clock;
    EventClock::TimerId m_id = 0;
};

} // namespace vesko
