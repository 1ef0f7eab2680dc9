#pragma once

#include "VeskoLinux/speech/engines/ContractEngine.h"

#include <filesystem>

namespace vesko {

// The engine that comes with Vesko, with whatever models are installed for it. Its text is in lower
// case, without punctuation.
class PocketSphinxEngine final : public ContractEngine {
public:
    explicit PocketSphinxEngine(const std::filesystem::path& program);
    // With the models of another folder.
    PocketSphinxEngine(const std::filesystem::path& program, std::filesystem::path models);

    // Without starting it: what models there are can be seen.
    bool speaks(const std::string& language) const override;
    std::vector<std::string> languages() const; // tags

private:
    std::filesystem::path m_models;
};

} // namespace vesko
