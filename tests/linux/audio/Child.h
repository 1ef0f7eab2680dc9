#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace vesko {

// Another program; killed at the latest when this object goes.
class Child {
public:
    explicit Child(const std::vector<std::string>& command);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    pid_t id() const { return m_id; }
    // The next line of its standard output; empty at the end.
    std::string line();
    // Up to so many bytes, as soon as there are any; empty at the end.
    std::string bytes(std::size_t most);
    void signal(int number) const;
    // Kills it and waits for its end.
    void kill();
    // Waits for its own end; its exit code.
    int wait();

    // Runs a program to its end; its output. Throws std::runtime_error if it fails.
    static std::string run(const std::vector<std::string>& command);

private:
    pid_t m_id = -1;
    int m_output = -1;
    std::string m_read;
};

} // namespace vesko
