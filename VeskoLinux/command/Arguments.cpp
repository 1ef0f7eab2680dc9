#include "VeskoLinux/command/Arguments.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace vesko {

namespace {

constexpr std::array<std::pair<std::string_view, Purpose>, 21> options{ {
    { "--background", Purpose::background },
    { "--install-openrouter-key", Purpose::keyInstaller },
    { "--keep-clipboard", Purpose::clipboardKeeper }, // said by the program itself
    { "--transcribe", Purpose::transcribe },
    { "--get-model", Purpose::modelInstaller },
    { "--export", Purpose::exportLibrary },
    { "--doctor", Purpose::doctor },
    { "--toggle", Purpose::toggle },
    { "--start", Purpose::start },
    { "--stop", Purpose::stop },
    { "--cancel", Purpose::cancel },
    { "--show", Purpose::show },
    { "--quit", Purpose::quit },
    { "--press", Purpose::press },
    { "--release", Purpose::release },
    { "--status", Purpose::status },
    { "--follow", Purpose::follow },
    { "--help", Purpose::help },
    { "-h", Purpose::help },
    { "--version", Purpose::version },
    { "-V", Purpose::version },
} };

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool takesFile(Purpose purpose)
{
    return purpose == Purpose::transcribe || purpose == Purpose::exportLibrary;
}

// Whether it begins with a scheme, as an address does that was opened with this program.
bool isAddress(std::string_view argument)
{
    const auto inScheme = [](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
    };
    const auto scheme = argument.substr(0, argument.find(':'));
    return scheme.size() < argument.size() && !scheme.empty() && isLetter(scheme[0])
        && std::ranges::all_of(scheme, inScheme);
}

Arguments refusal(std::string problem)
{
    Arguments refused;
    refused.purpose = Purpose::refused;
    refused.problem = std::move(problem);
    return refused;
}

} // namespace

const std::string_view usage
    = "Usage: vesko [OPTION] [ADDRESS...]\n"
      "\n"
      "Without an option: starts Vesko, or shows the one that runs.\n"
      "  --background   starts it without a window, as at login\n"
      "\n"
      "Said to the Vesko that runs; --toggle, --start and --show start it first if none does:\n"
      "  --toggle       starts a dictation, or ends the one that runs\n"
      "  --start        starts a dictation; the text goes into the field that has the focus now\n"
      "  --stop         ends it, and has it transcribed\n"
      "  --cancel       ends it without a transcript; the recording is kept\n"
      "  --show         shows the library\n"
      "  --press        the key that stands for the gesture key went down\n"
      "  --release      it went up: a tap toggles, a held key records until then\n"
      "  --quit         ends Vesko, once everything is saved\n"
      "\n"
      "Asked of it:\n"
      "  --status       what it is doing, in a line\n"
      "  --follow       the same, and a line more at each change\n"
      "  --json         with these two: as JSON, for bars and scripts\n"
      "\n"
      "  --transcribe FILE [--language LANGUAGE] [--keep]\n"
      "                 prints the text of an audio file; --keep puts it into the library, too\n"
      "  --export FOLDER\n"
      "                 writes the whole library into a zip file in that folder\n"
      "  --get-model NAME\n"
      "                 loads a model for whisper.cpp, such as base; an unknown NAME lists all\n"
      "  --doctor [--network]\n"
      "                 says what works on this computer, what doesn't, and what helps; with\n"
      "                 --network it asks the speech service for its models, too\n"
      "  --install-openrouter-key\n"
      "                 stores the key that OPENROUTER_API_KEY holds, and chooses OpenRouter\n"
      "  --help, --version\n"
      "\n"
      "The exit code is 0 when it was done, 1 when it failed, 2 when the arguments are wrong,\n"
      "3 when no Vesko runs, 4 when it can't be done now.\n";

Arguments Arguments::read(std::span<const char* const> arguments)
{
    std::optional<Purpose> purpose;
    Arguments read;
    std::string* value = nullptr; // what the next argument is
    for (const std::string_view argument : arguments) {
        if (value) {
            *std::exchange(value, nullptr) = argument;
            continue;
        }
        const auto* const option
            = std::ranges::find(options, argument, &decltype(options)::value_type::first);
        if (option != options.end()) {
            if (purpose && *purpose != option->second)
                return refusal("one thing at a time, please");
            purpose = option->second;
            if (takesFile(*purpose))
                value = &read.file;
            else if (*purpose == Purpose::modelInstaller)
                value = &read.model;
        } else if (argument == "--json") {
            read.json = true;
        } else if (argument == "--keep") {
            read.keep = true;
        } else if (argument == "--network") {
            read.network = true;
        } else if (argument == "--language") {
            value = &read.language;
        } else if (isAddress(argument)) {
            read.addresses.emplace_back(argument);
        } else {
            return refusal("unknown argument " + std::string(argument));
        }
    }
    read.purpose = purpose.value_or(Purpose::application);
    if (read.purpose == Purpose::modelInstaller && read.model.empty())
        return refusal("--get-model takes the name of a model");
    if (takesFile(read.purpose) && read.file.empty())
        return refusal("--transcribe takes a file, --export a folder");
    if (read.network && read.purpose != Purpose::doctor)
        return refusal("--network goes with --doctor");
    if (value || ((read.keep || !read.language.empty()) && read.purpose != Purpose::transcribe))
        return refusal("--language LANGUAGE and --keep go with --transcribe");
    if (read.json && read.purpose != Purpose::status && read.purpose != Purpose::follow)
        return refusal("--json goes with --status and --follow");
    if (!read.addresses.empty() && read.purpose != Purpose::application
        && read.purpose != Purpose::background)
        return refusal("addresses go with no other option than --background");
    return read;
}

} // namespace vesko
