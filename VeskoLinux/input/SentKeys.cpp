#include "VeskoLinux/input/SentKeys.h"

#include <algorithm>

namespace vesko {

namespace {

// The server leaves out what changes nothing, such as the release of a key that is up. What has
// not come back by now never will, and must not swallow a key of the user's.
constexpr double patience = 0.5; // seconds

} // namespace

void SentKeys::add(KeyCode key, bool down)
{
    m_sent.push_back({ key, down, m_clock.uptime() });
}

bool SentKeys::take(KeyCode key, bool down)
{
    const double now = m_clock.uptime();
    std::erase_if(m_sent, [&](const Sent& sent) { return now - sent.at > patience; });
    const auto found = std::ranges::find_if(
        m_sent, [&](const Sent& sent) { return sent.key == key && sent.down == down; });
    if (found == m_sent.end())
        return false;
    m_sent.erase(found);
    return true;
}

} // namespace vesko
