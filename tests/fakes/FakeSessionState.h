#pragma once

#include "VeskoApp/platform/SessionState.h"

namespace vesko {

// A session that is locked, put to sleep and ended by hand.
class FakeSessionState final : public SessionState {
public:
    bool isLocked = false;
    bool waits = false; // for the program's answer

    bool locked() const override { return isLocked; }
    void sleep()
    {
        waits = true;
        onSleep([this] { waits = false; });
    }
    void end()
    {
        waits = true;
        onEnd([this] { waits = false; });
    }
};

} // namespace vesko
