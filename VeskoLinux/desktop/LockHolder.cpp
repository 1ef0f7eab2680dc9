#include "VeskoLinux/desktop/LockHolder.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vesko {

namespace {

namespace fs = std::filesystem;

fs::path processFolder(std::int32_t process)
{
    return fs::path("/proc") / std::to_string(process);
}

// Some file systems give the kernel's list another device than everybody else, so a file's number
// there is a hint alone.
bool hasOpen(std::int32_t process, const struct stat& file)
{
    std::error_code error;
    for (fs::directory_iterator open(processFolder(process) / "fd", error), end;
        !error && open != end; open.increment(error)) {
        struct stat other;
        if (::stat(open->path().c_str(), &other) == 0 && other.st_dev == file.st_dev
            && other.st_ino == file.st_ino)
            return true;
    }
    return false;
}

// The kernel's list of locks takes ten milliseconds to read, so it is asked only where it has an
// answer. Whoever takes the lock in the very moment of this look hears that it is held.
bool isHeld(const fs::path& path)
{
    // Others may keep a file from being opened for as long as they like.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return false;
    const bool held = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(file);
    return held;
}

// A line as "1: FLOCK  ADVISORY  WRITE 18885 fe:00:10954232 0 EOF". Whoever waits for a lock has an
// arrow before the kind.
std::int32_t holderIn(const std::string& line, ino_t inode)
{
    std::istringstream words(line);
    std::string number, kind, force, access, place;
    std::int32_t process = 0;
    words >> number >> kind >> force >> access >> process >> place;
    const auto found = std::string_view(place).substr(place.rfind(':') + 1);
    ino_t named = 0;
    std::from_chars(found.data(), found.data() + found.size(), named);
    return words && kind == "FLOCK" && named == inode ? process : 0;
}

std::string variable(std::string_view environment, std::string_view name)
{
    while (!environment.empty()) {
        const auto line = environment.substr(0, environment.find('\0'));
        if (line.starts_with(name) && line.substr(name.size()).starts_with('='))
            return std::string(line.substr(name.size() + 1));
        environment.remove_prefix(std::min(line.size() + 1, environment.size()));
    }
    return {};
}

LockHolder described(std::int32_t process)
{
    std::ifstream file(processFolder(process) / "environ");
    std::ostringstream read;
    read << file.rdbuf();
    const auto environment = read.str();
    LockHolder holder{ .process = process,
        .display = variable(environment, "DISPLAY"),
        .sessionBus = variable(environment, "DBUS_SESSION_BUS_ADDRESS") };
    if (holder.display.empty())
        holder.display = variable(environment, "WAYLAND_DISPLAY");
    const auto runtime = variable(environment, "XDG_RUNTIME_DIR");
    if (holder.sessionBus.empty() && !runtime.empty())
        holder.sessionBus = "unix:path=" + runtime + "/bus";
    // Other addresses start programs, or lead to other machines.
    if (!holder.sessionBus.starts_with("unix:"))
        holder.sessionBus.clear();
    return holder;
}

} // namespace

std::optional<LockHolder> lockHolder(const std::filesystem::path& file)
{
    if (!isHeld(file))
        return std::nullopt;
    struct stat locked;
    if (::stat(file.c_str(), &locked) != 0)
        return std::nullopt;
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        const auto process = holderIn(line, locked.st_ino);
        if (process > 0 && process != ::getpid() && hasOpen(process, locked))
            return described(process);
    }
    return std::nullopt;
}

} // namespace vesko
