#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace vesko::bench {

// A folder of its own on the disk that holds the working directory, gone at the end.
class BenchFolder {
public:
    BenchFolder()
    {
        std::string name = (std::filesystem::current_path() / "bench.XXXXXX").string();
        if (!mkdtemp(name.data()))
            throw std::system_error(errno, std::generic_category());
        m_path = name;
    }
    ~BenchFolder() { std::filesystem::remove_all(m_path); }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace vesko::bench
