#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoCore/base/Secret.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vesko {

// An engine that this machine has.
struct FoundEngine {
    std::string id; // names it in the settings: "whisper.cpp/base"
    std::string name; // "whisper.cpp"
    std::string model
        = {}; // "base"; empty where the engine has but one, or chooses by the language
    std::string version = {}; // empty where it doesn't say
    std::string licence = {}; // likewise
    std::vector<std::string> languages = {}; // tags; none where only the user knows
    bool detectsLanguage = false;

    bool operator==(const FoundEngine&) const = default;
};

// The user's own ways to a recogniser, from the settings.
struct EngineChoice {
    std::string id; // of a found engine, or "command", or "server"
    // The program's path and its arguments, with {wav} in one.
    std::vector<std::string> command = {};
    std::string commandModel = {}; // what {model} stands for; may be empty
    std::string serverAddress = {}, serverModel = {};
    Secret serverKey = {}; // may be empty

    // What a record calls the command's model: the file of the model, or else the program.
    std::string commandModelName() const
    {
        const auto program = command.empty() ? std::string() : command.front();
        return std::filesystem::path(commandModel.empty() ? program : commandModel).filename();
    }

    bool operator==(const EngineChoice&) const = default;
};

// What speech on this machine is recognised with. Main thread.
class SpeechEngines {
public:
    virtual ~SpeechEngines() = default;

    // What is there, the best first; never none. Starts programs, and takes as long as they do.
    virtual Task<std::vector<FoundEngine>> find() = 0;
    // The engine of what begins from now on. False, and nothing changes, if it isn't there.
    virtual Task<bool> use(EngineChoice choice) = 0;
};

} // namespace vesko
