#include "VeskoApp/async/QtClock.h"

#include <QTimer>

#include <chrono>

namespace vesko {

QtClock::QtClock() = default;
QtClock::~QtClock() = default;

EventClock::TimerId QtClock::arm(double seconds, std::function<void()> callback)
{
    const TimerId id = ++m_last;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, [this, id, callback = std::move(callback)] {
        // The timer is in the middle of its signal: it ends with the event loop's next turn, and
        // the callback lives in it, so it is copied out first.
        auto node = m_timers.extract(id);
        const auto call = callback;
        node.mapped().release()->deleteLater();
        call();
    });
    timer->start(
        std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(seconds)));
    m_timers.emplace(id, std::move(timer));
    return id;
}

void QtClock::disarm(TimerId id)
{
    m_timers.erase(id);
}

} // namespace vesko
