#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vesko {

// One thing that Vesko needs of a machine, as it was found. No word, key or path of the user's is
// in it, so that it can be shown to anybody.
struct Finding {
    enum class State { fine, fact, wanting };

    std::string subject; // such as "Microphone"
    State state = State::fine;
    std::string seen;
    std::string remedy; // what to do; only if it is wanting

    // The subject is the check's.
    static Finding fine(std::string seen) { return { {}, State::fine, std::move(seen), {} }; }
    static Finding fact(std::string seen) { return { {}, State::fact, std::move(seen), {} }; }
    static Finding wanting(std::string seen, std::string remedy)
    {
        return { {}, State::wanting, std::move(seen), std::move(remedy) };
    }
};

// Looks at one thing. Blocks, for a few seconds at most; what it throws counts as wanting.
struct Check {
    std::string subject;
    std::function<Finding()> look;
};

// Each check's finding, in their order. Calls `found` with each as soon as it is known.
void diagnose(const std::vector<Check>& checks, const std::function<void(const Finding&)>& found);

// The finding in plain text, for a terminal and for a report: a line, and one more for the remedy.
std::string described(const Finding& finding);

} // namespace vesko
