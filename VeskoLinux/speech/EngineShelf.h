#pragma once

#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SpeechEngines.h"
#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <filesystem>
#include <functional>
#include <memory>

namespace vesko {

// Finds engines where users have them.
class EngineShelf final : public SpeechEngines {
public:
    struct Places {
        std::filesystem::path pocketSphinx; // the program
        std::vector<std::filesystem::path> contractEngines; // folders of programs
        std::vector<std::filesystem::path> whisperPrograms;
        std::vector<std::filesystem::path> whisperModels; // folders
    };
    // This user's, with the programs that stand beside Vesko's.
    static Places usualPlaces(
        const std::filesystem::path& programs, const std::filesystem::path& data);

    EngineShelf(Places places, std::function<void(std::shared_ptr<const SpeechEngine>)> use);

    Task<std::vector<FoundEngine>> find() override;
    Task<bool> use(EngineChoice choice) override;

private:
    Places m_places;
    std::function<void(std::shared_ptr<const SpeechEngine>)> m_use;
    Worker m_finding; // may be long; what is to be used needn't wait for it
    Worker m_fetching;
};

} // namespace vesko
