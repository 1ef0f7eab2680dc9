#pragma once

#include "VeskoApp/platform/SpeechEngines.h"
#include "tests/fakes/Gate.h"

#include <algorithm>

namespace vesko {

// The engines that a test puts on the machine.
class FakeSpeechEngines final : public SpeechEngines {
public:
    std::vector<FoundEngine> found{ { .id = "pocketsphinx",
        .name = "pocketsphinx",
        .model = "",
        .version = "5prealpha",
        .licence = "BSD-2-Clause",
        .languages = { "en-US" } } };
    std::vector<EngineChoice> used;
    Gate finding;

    Task<std::vector<FoundEngine>> find() override
    {
        co_await finding.pass();
        co_return found;
    }
    Task<bool> use(EngineChoice choice) override
    {
        const bool own = choice.id == "command" || choice.id == "server";
        const bool there = own || std::ranges::any_of(found, [&](const auto& engine) {
            return engine.id == choice.id;
        });
        if (there)
            used.push_back(std::move(choice));
        co_return there;
    }
};

} // namespace vesko
