#pragma once

#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <chrono>
#include <vector>

namespace vesko {

// An engine that keeps to the contract in docs/engines.md: one process a recording.
class ContractEngine : public SpeechEngine {
public:
    // An engine that doesn't introduce itself in so long is none.
    static constexpr auto usualPatience = std::chrono::seconds(10);

    // Starts the program once to hear who it is. Blocks; throws EngineFailure.
    static EngineHello introduced(const std::vector<std::string>& command,
        const std::stop_token& stop, std::chrono::milliseconds patience = usualPatience);

    ContractEngine(std::vector<std::string> command, EngineHello hello,
        std::chrono::milliseconds patience = usualPatience);

    std::string name() const override { return m_hello.name; }
    bool speaks(const std::string& language) const override { return m_hello.speaks(language); }
    int longestPiece() const override { return m_hello.longestPiece; }
    std::unique_ptr<Session> begin(const Wish& wish, std::stop_token stop) const override;

private:
    std::vector<std::string> m_command;
    EngineHello m_hello;
    std::chrono::milliseconds m_patience;
};

} // namespace vesko
