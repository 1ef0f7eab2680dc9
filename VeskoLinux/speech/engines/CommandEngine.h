#pragma once

#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <filesystem>
#include <vector>

namespace vesko {

// Any program that turns a WAV file into text on its standard output: one process a piece. No shell
// is between.
class CommandEngine : public SpeechEngine {
public:
    struct Command {
        std::string name; // of the engine
        // The program's path and its arguments, in which {wav}, {language} (a code such as "en",
        // or "auto"), {model} and {prompt} stand for themselves.
        std::vector<std::string> words;
        // More of them, where there is a prompt.
        std::vector<std::string> promptWords = {};
        std::string model = {};
        std::string modelName = {}; // as it stands in the records
    };

    explicit CommandEngine(Command command);

    std::string name() const override { return m_command.name; }
    // The user knows what the program speaks.
    bool speaks(const std::string&) const override { return true; }
    // Programs of this kind load their model for each piece.
    int longestPiece() const override { return 28; }
    std::unique_ptr<Session> begin(const Wish& wish, std::stop_token stop) const override;

private:
    Command m_command;
};

} // namespace vesko
