#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vesko {

// What a start of the program is for.
enum class Purpose {
    application, // to be the program, or to show the one that runs
    background, // to be the program, without a window
    keyInstaller,
    clipboardKeeper, // to serve what the program left on the clipboard when it ended
    modelInstaller, // to load a model for speech
    transcribe, // to print the text of an audio file
    exportLibrary, // to write all of the library into a file
    doctor, // to say what works on this machine
    // Said to the Vesko that runs.
    toggle,
    start,
    stop,
    cancel,
    show,
    quit,
    press,
    release,
    // Asked of it.
    status,
    follow,
    // Said about it.
    help,
    version,
    refused,
};

struct Arguments {
    Purpose purpose = Purpose::application;
    bool json = false; // with status and follow
    std::string model = {}; // that is to be loaded
    std::string file; // with transcribe; with exportLibrary the folder
    std::string language; // with transcribe; empty for that of the settings
    bool keep = false; // with transcribe
    bool network = false; // with doctor
    std::vector<std::string> addresses; // that were opened with the program
    std::string problem; // one line for a terminal; only if refused

    // Without the program's own name.
    static Arguments read(std::span<const char* const> arguments);
    // Whether the program itself is needed, with all its libraries.
    bool wantProgram() const { return purpose <= Purpose::doctor; }
};

// What --help says.
extern const std::string_view usage;

} // namespace vesko
