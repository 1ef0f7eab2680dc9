#pragma once

#include <string_view>

namespace vesko {

// The terminal of a command that takes a while. Of one thread, once in a process.
class Terminal {
public:
    // From here on Ctrl+C and its like ask the command to end, instead of ending it.
    Terminal();

    bool isInterrupted() const;
    // Shows how far it is, 0 to 1, where somebody can see it.
    void showProgress(double done);
    // Says on the error output why it failed; the progress is gone then. The exit code: 1, or what
    // a shell expects of a command that was ended, 130 after Ctrl+C.
    int complain(std::string_view why);
    // Takes the progress away.
    void clear();

private:
    int m_shown = -1; // percent
};

} // namespace vesko
