#include "VeskoLinux/speech/engines/PocketSphinxEngine.h"

#include "VeskoLinux/speech/SpeechModel.h"

#include <utility>

namespace vesko {

PocketSphinxEngine::PocketSphinxEngine(const std::filesystem::path& program)
    : PocketSphinxEngine(program, VESKO_SPEECH_MODELS)
{
}

PocketSphinxEngine::PocketSphinxEngine(
    const std::filesystem::path& program, std::filesystem::path models)
    : ContractEngine({ program, "--models", models }, { .name = "pocketsphinx" })
    , m_models(std::move(models))
{
}

bool PocketSphinxEngine::speaks(const std::string& language) const
{
    return SpeechModel::find(m_models, language).has_value();
}

std::vector<std::string> PocketSphinxEngine::languages() const
{
    return SpeechModel::installed(m_models);
}

} // namespace vesko
