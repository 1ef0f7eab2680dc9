#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vesko {

// What starting the program again means while it runs: there is one Vesko, and the second start
// only tells the first what it was started for. The calls come from the event loop; main thread.
class RunningInstance {
public:
    virtual ~RunningInstance() = default;

    // The user wants to see the program.
    std::function<void()> onActivate;
    // These addresses were opened with the program, by whatever other program: trust none of them.
    std::function<void(const std::vector<std::string>&)> onOpen;
};

} // namespace vesko
