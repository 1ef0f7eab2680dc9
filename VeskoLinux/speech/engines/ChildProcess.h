#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace vesko {

// A program that works for Vesko and is trusted with nothing: no terminal, no network and no
// processes but its own where the kernel lets an ordinary user say so (user, network and process
// namespaces), of the environment only what locates files and words, no open file but its input
// and output, nothing of it in a core file, and the first to go when memory runs out. What it
// writes to its error output is thrown away. It dies with the thread that made it.
//
// Every function blocks; one thread. Each throws EngineFailure when the program can't do its part,
// and ChildProcess::Stopped as soon as the stop is requested.
class ChildProcess {
public:
    struct Options {
        // Nobody waits for it: it runs when the machine has nothing else to do.
        bool lowPriority = false;
        // Of its whole output; more is a failure.
        std::size_t outputLimit = std::size_t{ 1 } << 20;
    };
    class Stopped : public std::exception { };

    // The command begins with the path of the program, which has to pass requireTrusted().
    ChildProcess(
        const std::vector<std::string>& command, std::stop_token stop, const Options& options);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    // Kills it and what it has started.
    ~ChildProcess();

    // Writes all of it, and takes in meanwhile what the program says.
    void send(std::string_view bytes);
    void endInput();
    // The next line of its output, without its end. A program that ends instead, or says nothing
    // for so long, fails.
    std::string line(std::chrono::milliseconds patience);
    // All the rest of its output, once it has ended well; fails if it ends otherwise.
    std::string rest();

private:
    using Deadline = std::optional<std::chrono::steady_clock::time_point>;

    void readAvailable();
    // Waits until it can be written to, if asked, or has said something or ended.
    void wait(bool toWrite, const Deadline& deadline);
    [[noreturn]] void fail(const char* why) const;

    std::stop_token m_stop;
    std::size_t m_outputLimit;
    int m_process = -1; // its number
    int m_end = -1; // readable when it has ended
    int m_input = -1;
    int m_output = -1; // -1 at its end
    int m_wake = -1; // readable when the stop is requested
    std::string m_said; // what line() has not given yet
    std::size_t m_searched = 0; // of m_said, without a line's end
    std::size_t m_total = 0;
};

// Throws EngineFailure unless the file is a program that only the user or the system can have put
// there: a plain file that the user may execute, its owner root or the user, and neither it nor
// its folder writable by everybody.
void requireTrusted(const std::filesystem::path& program);

} // namespace vesko
