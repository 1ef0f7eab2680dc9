#include "VeskoCore/base/Clock.h"

namespace vesko {

Date SystemClock::now() const
{
    using namespace std::chrono;
    return { floor<microseconds>(system_clock::now()) };
}

double SystemClock::uptime() const
{
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

} // namespace vesko
