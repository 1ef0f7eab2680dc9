#include "VeskoCore/insertion/InsertionContext.h"

namespace vesko {

namespace {

constexpr double longestWait = 120; // seconds

} // namespace

std::vector<std::string> InsertionContext::blockers() const
{
    std::vector<std::string> reasons;
    if (!trusted)
        reasons.emplace_back("accessibility");
    if (!sameApplication)
        reasons.emplace_back("app_changed");
    if (!sameElement)
        reasons.emplace_back("field_changed");
    if (!writable)
        reasons.emplace_back("not_writable");
    if (secure)
        reasons.emplace_back("secure_field");
    // A clock that was set back gives a negative time, and nobody knows how long it really was.
    const bool inTime = elapsed >= 0 && elapsed <= longestWait;
    if (!inTime)
        reasons.emplace_back("too_late");
    return reasons;
}

std::vector<std::string> InsertionContext::notes() const
{
    std::vector<std::string> changes;
    if (!sameSelection)
        changes.emplace_back("cursor_moved");
    if (!unchangedValue)
        changes.emplace_back("text_changed");
    return changes;
}

} // namespace vesko
