#pragma once

#include <filesystem>

namespace vesko {

// The program itself, which stands beside this command: what takes its time to load.
class Program {
public:
    // Becomes it, with the same arguments. Only comes back by throwing std::system_error.
    [[noreturn]] static void become(char** arguments);

    // Starts it without a window, to outlive this command and its terminal. Throws
    // std::system_error.
    Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // A file descriptor that has POLLIN once it has ended.
    int ended() const { return m_ended; }

private:
    int m_ended = -1;
};

} // namespace vesko
