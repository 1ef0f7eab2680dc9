#include "VeskoLinux/speech/SpeechModel.h"

#include "VeskoCore/base/Folder.h"

#include <algorithm>
#include <cctype>

namespace vesko {

namespace {

// "en_GB.UTF-8" is "en-gb".
std::string normalized(const std::string& tag)
{
    std::string text = tag.substr(0, tag.find_first_of(".@"));
    std::ranges::replace(text, '_', '-');
    std::ranges::transform(
        text, text.begin(), [](unsigned char letter) { return std::tolower(letter); });
    return text;
}

std::string languageOf(const std::string& normalizedTag)
{
    return normalizedTag.substr(0, normalizedTag.find('-'));
}

std::optional<SpeechModel> modelIn(const std::filesystem::path& folder)
{
    SpeechModel model;
    eachEntry(folder, [&](const std::filesystem::path& path) {
        const auto name = path.filename().string();
        std::error_code ignored;
        if (std::filesystem::exists(path / "mdef", ignored))
            model.acoustic = path;
        else if (name.ends_with(".dict"))
            model.dictionary = path;
        // The other kind of language model is one of sounds, not of words.
        else if ((name.ends_with(".lm.bin") || name.ends_with(".lm"))
            && name.find("phone") == std::string::npos)
            model.language = path;
    });
    if (model.acoustic.empty() || model.language.empty() || model.dictionary.empty())
        return std::nullopt;
    return model;
}

} // namespace

std::optional<SpeechModel> SpeechModel::find(
    const std::filesystem::path& models, const std::string& tag)
{
    const auto wanted = normalized(tag);
    if (languageOf(wanted).empty())
        return std::nullopt; // a hidden folder would seem to be named so
    std::vector<std::filesystem::path> folders;
    eachEntry(models, [&](const std::filesystem::path& folder) {
        if (languageOf(normalized(folder.filename().string())) == languageOf(wanted))
            folders.push_back(folder);
    });
    std::ranges::sort(folders, {}, [&](const auto& folder) {
        return std::pair(normalized(folder.filename().string()) != wanted, folder);
    });
    for (const auto& folder : folders)
        if (auto model = modelIn(folder))
            return model;
    return std::nullopt;
}

std::vector<std::string> SpeechModel::installed(const std::filesystem::path& models)
{
    std::vector<std::string> tags;
    eachEntry(models, [&](const std::filesystem::path& folder) {
        if (const auto model = modelIn(folder);
            model && !languageOf(normalized(model->name())).empty())
            tags.push_back(normalized(model->name()));
    });
    std::ranges::sort(tags);
    return tags;
}

} // namespace vesko
