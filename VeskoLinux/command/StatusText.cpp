#include "VeskoLinux/command/StatusText.h"

#include <cstdio>

namespace vesko {

namespace {

std::string quoted(const std::string& text)
{
    std::string json = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escaped[7];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            json += escaped;
        } else {
            json += c;
        }
    }
    return json + '"';
}

// A line of people's is one line, whatever the other side sent.
std::string onOneLine(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f)
            c = ' ';
    return text;
}

std::string shown(const ProgramStatus& status)
{
    if (status.state == "stopped")
        return "Vesko is not running";
    return status.title.empty() ? status.state : status.title;
}

} // namespace

std::string plainLine(const ProgramStatus& status)
{
    auto line = onOneLine(shown(status));
    if (status.state == "recording" && status.elapsed >= 0 && status.elapsed < 1e6) {
        const int seconds = static_cast<int>(status.elapsed);
        char clock[32];
        std::snprintf(clock, sizeof clock, " %d:%02d", seconds / 60, seconds % 60);
        line += clock;
    }
    return line;
}

std::string jsonLine(const ProgramStatus& status)
{
    char elapsed[32] = "0.0";
    if (status.elapsed >= 0 && status.elapsed < 1e6)
        std::snprintf(elapsed, sizeof elapsed, "%.1f", status.elapsed);
    const auto state = quoted(status.state);
    const auto title = quoted(shown(status));
    return "{\"state\":" + state + ",\"elapsed\":" + elapsed + ",\"text\":" + title
        + ",\"tooltip\":" + title + ",\"alt\":" + state + ",\"class\":" + state + "}";
}

} // namespace vesko
