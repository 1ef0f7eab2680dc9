#pragma once

#include <string>
#include <vector>

namespace vesko {

// The facts about the starting field just before a paste, and what follows from them. Pure.
struct InsertionContext {
    bool sameApplication = false;
    bool sameElement = false;
    bool sameSelection = false;
    bool unchangedValue = false;
    bool writable = false;
    bool secure = false;
    bool trusted = false; // the program may use accessibility
    double elapsed = 0; // seconds since the field was captured

    // What forbids the paste, in a fixed order; the first one is what the user is told.
    std::vector<std::string> blockers() const;
    bool permitsPaste() const { return blockers().empty(); }
    // What changed but forbids nothing: the user may type on in the field while waiting.
    std::vector<std::string> notes() const;
};

} // namespace vesko
