// What people start: becomes the program, or says a word to the one that runs. It loads none of the
// program's libraries, so that a word costs no more than sending it over the bus.

#include "VeskoLinux/command/Arguments.h"
#include "VeskoLinux/command/Bus.h"
#include "VeskoLinux/command/Program.h"

#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <span>
#include <string>
#include <utility>

namespace vesko {

namespace {

enum ExitCode { succeeded = 0, hasFailed = 1, badUsage = 2, notRunning = 3, notPossibleNow = 4 };

constexpr int patience = 30000; // milliseconds: for a start, and for an end

int complain(ExitCode code, const char* why)
{
    std::fprintf(stderr, "vesko: %s\n", why);
    return code;
}

const char* methodOf(Purpose purpose)
{
    switch (purpose) {
    case Purpose::toggle:
        return "Toggle";
    case Purpose::start:
        return "Start";
    case Purpose::stop:
        return "Stop";
    case Purpose::cancel:
        return "Cancel";
    case Purpose::show:
        return "Show";
    case Purpose::press:
        return "Press";
    case Purpose::release:
        return "Release";
    default:
        return "Quit";
    }
}

int codeOf(Purpose purpose, Bus::Outcome outcome)
{
    switch (outcome) {
    case Bus::Outcome::done:
        return succeeded;
    case Bus::Outcome::failed:
        return complain(hasFailed, "it failed; Vesko shows why");
    case Bus::Outcome::notNow:
        return complain(notPossibleNow,
            purpose == Purpose::stop         ? "nothing is being recorded"
                : purpose == Purpose::cancel ? "nothing is being recorded or transcribed"
                                             : "Vesko can't start a dictation now");
    case Bus::Outcome::absent:
        break;
    }
    return complain(notRunning, "Vesko is not running");
}

// Two that are started at once become one; the other of them just ends.
Bus::Outcome startAndCall(const Bus& bus, const char* method)
{
    bus.listen();
    const Program program;
    while (!bus.isThere())
        if (bus.wait(program.ended(), POLLIN, patience).what != Bus::Heard::owner)
            break;
    const auto outcome = bus.call(method);
    return outcome == Bus::Outcome::absent ? Bus::Outcome::failed : outcome;
}

int say(Purpose purpose)
{
    const Bus bus;
    if (purpose == Purpose::quit)
        bus.listen();
    auto outcome = bus.call(methodOf(purpose));
    const bool starts
        = purpose == Purpose::toggle || purpose == Purpose::start || purpose == Purpose::show;
    if (outcome == Bus::Outcome::absent && starts) {
        outcome = startAndCall(bus, methodOf(purpose));
        if (outcome == Bus::Outcome::failed)
            return complain(hasFailed, "it failed; a start of vesko in a terminal may say why");
    }
    if (outcome == Bus::Outcome::done && purpose == Purpose::quit)
        while (bus.isThere())
            if (bus.wait(-1, 0, patience).what == Bus::Heard::nothing)
                return complain(hasFailed, "Vesko goes on; it shows why");
    return codeOf(purpose, outcome);
}

std::string lineOf(const ProgramStatus& status, bool json)
{
    return json ? jsonLine(status) : plainLine(status);
}

int tellStatus(bool json)
{
    const auto status = Bus().status();
    std::puts(lineOf(status, json).c_str());
    return status.state == "stopped" ? notRunning : succeeded;
}

// Until nobody reads any more.
int follow(bool json)
{
    const Bus bus;
    bus.listen();
    std::string last;
    const auto print = [&](const ProgramStatus& status) {
        const auto line = lineOf(status, json);
        if (std::exchange(last, line) != line) {
            std::puts(line.c_str());
            std::fflush(stdout);
        }
    };
    print(bus.status());
    while (true) {
        const auto heard = bus.wait(STDOUT_FILENO, 0, -1);
        switch (heard.what) {
        case Bus::Heard::report:
            print(heard.status);
            break;
        case Bus::Heard::owner:
            print(bus.status());
            break;
        case Bus::Heard::busEnded:
            return complain(hasFailed, "the session bus has ended");
        default:
            return succeeded;
        }
    }
}

int run(std::span<char*> arguments)
{
    const auto read = Arguments::read(arguments.subspan(1));
    if (read.wantProgram())
        Program::become(arguments.data());
    switch (read.purpose) {
    case Purpose::help:
        std::fwrite(usage.data(), 1, usage.size(), stdout);
        return succeeded;
    case Purpose::version:
        std::puts("Vesko " VESKO_VERSION);
        return succeeded;
    case Purpose::refused:
        std::fprintf(stderr, "vesko: %s\nvesko --help names the options\n", read.problem.c_str());
        return badUsage;
    case Purpose::status:
        return tellStatus(read.json);
    case Purpose::follow:
        return follow(read.json);
    default:
        return say(read.purpose);
    }
}

} // namespace

} // namespace vesko

int main(int argc, char** argv)
{
    try {
        return vesko::run({ argv, static_cast<std::size_t>(argc) });
    } catch (const std::exception& error) {
        return vesko::complain(vesko::hasFailed, error.what());
    }
}
