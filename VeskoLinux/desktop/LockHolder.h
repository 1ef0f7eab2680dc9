#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vesko {

// Another process of this user that holds the advisory lock on a file, and the session it is in.
struct LockHolder {
    std::int32_t process = 0;
    std::string display; // of its windows; empty if it has none
    std::string sessionBus; // an address for D-Bus; empty if it has none on this machine
};

// As the kernel tells it. Nothing if nobody holds the lock, or who does can't be seen from here: in
// a process namespace of its own, or on another machine. Takes ten milliseconds if somebody does,
// in which nobody on the machine gets a lock; any thread.
std::optional<LockHolder> lockHolder(const std::filesystem::path& file);

} // namespace vesko
