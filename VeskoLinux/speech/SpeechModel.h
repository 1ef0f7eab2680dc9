#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vesko {

// An installed model of one language.
struct SpeechModel {
    std::filesystem::path acoustic; // a folder
    std::filesystem::path language;
    std::filesystem::path dictionary;

    // The model for a language tag, such as "en", "en-US" or "en_GB.UTF-8", among the folders that
    // are named after a language: the same region if there is one, else any of the language.
    static std::optional<SpeechModel> find(
        const std::filesystem::path& models, const std::string& tag);
    // The tags of all that are installed, sorted.
    static std::vector<std::string> installed(const std::filesystem::path& models);

    // That of its folder: "en-us".
    std::string name() const { return dictionary.parent_path().filename().string(); }
};

} // namespace vesko
