#include "VeskoLinux/accessibility/TerminalEcho.h"

#include <fcntl.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vesko {
namespace {

constexpr std::size_t processLimit = 256;
constexpr unsigned firstMajor = 136, lastMajor = 143; // of pseudo-terminals
constexpr unsigned minors = 256; // that each of these has

// The number of the pseudo-terminal that controls the process.
std::optional<unsigned> pseudoTerminal(std::int32_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    const auto name = text.rfind(')'); // it may hold blanks and brackets itself
    if (name == std::string::npos)
        return std::nullopt;
    char state = 0;
    int parent = 0, group = 0, session = 0, device = 0;
    // NOLINTNEXTLINE(cert-err34-c): the kernel wrote it
    if (std::sscanf(
            text.c_str() + name + 1, " %c %d %d %d %d", &state, &parent, &group, &session, &device)
        != 5)
        return std::nullopt;
    const unsigned number = major(dev_t(unsigned(device)));
    if (number < firstMajor || number > lastMajor)
        return std::nullopt;
    return (number - firstMajor) * minors + minor(dev_t(unsigned(device)));
}

std::vector<std::int32_t> childrenOf(std::int32_t process)
{
    std::vector<std::int32_t> children;
    std::error_code failure;
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    for (std::filesystem::directory_iterator task(tasks, failure), end; !failure && task != end;
        task.increment(failure)) {
        std::ifstream file(task->path() / "children");
        for (std::int32_t child = 0; file >> child && children.size() < processLimit;)
            children.push_back(child);
    }
    return children;
}

bool readsHiddenLine(unsigned terminal)
{
    const int file = open(("/dev/pts/" + std::to_string(terminal)).c_str(),
        O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    termios mode{};
    const bool told = tcgetattr(file, &mode) == 0;
    close(file);
    return told && !(mode.c_lflag & ECHO) && (mode.c_lflag & ICANON);
}

} // namespace

bool terminalHidesWhatIsTyped(std::int32_t terminalProcess)
{
    std::set<unsigned> terminals;
    auto processes = childrenOf(terminalProcess);
    for (std::size_t at = 0; at < processes.size() && at < processLimit; ++at) {
        if (const auto number = pseudoTerminal(processes[at]))
            terminals.insert(*number);
        const auto more = childrenOf(processes[at]);
        processes.insert(processes.end(), more.begin(), more.end());
    }
    // What it was started from is not inside it.
    if (const auto outer = pseudoTerminal(terminalProcess))
        terminals.erase(*outer);
    return std::ranges::any_of(terminals, readsHiddenLine);
}

} // namespace vesko
