#pragma once

#include "VeskoApp/async/Task.h"

#include <functional>

namespace vesko {

// What the machine lets the program do, as far as nothing else of the platform tells. Main thread;
// nothing here waits.
class Permissions {
public:
    virtual ~Permissions() = default;

    // As seen last, without asking the user: whether there is a microphone, and whether other
    // programs can be read over the accessibility bus.
    virtual bool microphone() const = 0;
    virtual bool accessibility() const = 0;
    // Looks again.
    virtual void look() = 0;
    // Whether a microphone could really be opened, which is tried for a moment.
    virtual Task<bool> requestMicrophone() = 0;
    // Turns accessibility on for the programs of this desktop, which leaves it on. False if there
    // is no accessibility bus to turn on.
    virtual Task<bool> requestAccessibility() = 0;

    // What is seen may have changed.
    std::function<void()> onChanged;
};

} // namespace vesko
