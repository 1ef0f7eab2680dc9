#pragma once

#include <string>

namespace vesko {

// What the running program says of itself; "stopped", with no title, if none runs.
struct ProgramStatus {
    std::string state = "stopped";
    std::string title; // UTF-8
    double elapsed = 0; // seconds
};

// One line without its end: for people, or an object that bars such as Waybar take as it is.
std::string plainLine(const ProgramStatus& status);
std::string jsonLine(const ProgramStatus& status);

} // namespace vesko
