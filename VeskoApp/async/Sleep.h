#pragma once

#include "VeskoApp/async/EventClock.h"

#include <coroutine>

namespace vesko {

// co_await sleepFor(clock, seconds): goes on when so much uptime has passed. A task that is
// destroyed meanwhile is never woken.
inline auto sleepFor(EventClock& clock, double seconds)
{
    struct Awaiter {
        Timer timer;
        double seconds;

        Awaiter(EventClock& of, double duration)
            : timer(of)
            , seconds(duration)
        {
        }
        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<> waiting)
        {
            timer.start(seconds, [waiting] { waiting.resume(); });
        }
        void await_resume() const { }
    };
    return Awaiter(clock, seconds);
}

} // namespace vesko
