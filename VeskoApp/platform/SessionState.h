#pragma once

#include <functional>

namespace vesko {

// What becomes of the desktop session that the program runs in. Main thread only; nothing here
// waits. Where the desktop tells nothing of it, nothing happens.
class SessionState {
public:
    virtual ~SessionState() = default;

    // Whether the user has locked the session, as the desktop says.
    virtual bool locked() const = 0;

    // Lets the desktop go on; further calls do nothing.
    using Done = std::function<void()>;

    // The machine is about to sleep. The desktop waits for `done`, for five seconds at most.
    std::function<void(Done done)> onSleep;
    // The session is about to end, and this program with it. The desktop waits as above. It may
    // still think better of it.
    std::function<void(Done done)> onEnd;
};

} // namespace vesko
