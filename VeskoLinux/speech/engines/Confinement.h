#pragma once

#include <string>
#include <vector>

namespace vesko {

// A program under way. Whoever gets it closes the descriptors and waits for the process.
struct ConfinedProcess {
    int process = -1; // its number; it leads a group of its own
    int end = -1; // readable once it has ended
    int input = -1; // to write to; doesn't block
    int output = -1; // to read from; doesn't block
};

// Starts a program as ChildProcess promises. The command begins with its path. Throws
// EngineFailure if it can't be started.
ConfinedProcess startConfined(const std::vector<std::string>& command, bool lowPriority);

} // namespace vesko
