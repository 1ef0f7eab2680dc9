#include "VeskoLinux/speech/engines/WhisperEngine.h"

#include "VeskoCore/base/Folder.h"
#include "VeskoCore/speech/SpokenLanguage.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

namespace vesko {

namespace {

namespace fs = std::filesystem;

fs::path homeFolder()
{
    const char* value = std::getenv("HOME");
    return value && *value == '/' ? value : "/nonexistent";
}

fs::path userFolder(const char* variable, const char* underHome)
{
    const char* value = std::getenv(variable);
    return value && *value == '/' ? fs::path(value) : homeFolder() / underHome;
}

// The format begins with its mark and then the size of the vocabulary; that of the models which
// know more than English is larger.
std::optional<WhisperModel> modelIn(const fs::path& file)
{
    constexpr std::string_view prefix = "ggml-", suffix = ".bin";
    const std::string name = file.filename();
    std::error_code error;
    if (!name.starts_with(prefix) || !name.ends_with(suffix)
        || name.size() <= prefix.size() + suffix.size() || !fs::is_regular_file(file, error))
        return std::nullopt;
    WhisperModel model;
    model.file = file;
    model.name = name.substr(prefix.size(), name.size() - prefix.size() - suffix.size());
    model.size = fs::file_size(file, error);
    std::array<char, 8> head{};
    if (error || !std::ifstream(file, std::ios::binary).read(head.data(), head.size()))
        return std::nullopt;
    std::array<std::uint32_t, 2> numbers{};
    std::memcpy(numbers.data(), head.data(), head.size());
    constexpr std::uint32_t mark = 0x67676d6c, multilingualWords = 51865, mostWords = 100'000;
    constexpr std::uint32_t englishWords = 51864;
    if (numbers[0] != mark || numbers[1] < englishWords || numbers[1] > mostWords)
        return std::nullopt;
    model.multilingual = numbers[1] >= multilingualWords;
    return model;
}

} // namespace

std::vector<WhisperModel> WhisperModel::in(const std::vector<fs::path>& folders)
{
    std::vector<WhisperModel> models;
    std::set<std::string> names;
    for (const auto& folder : folders) // most of them aren't there
        eachEntry(folder, [&](const fs::path& file) {
            if (auto model = modelIn(file); model && names.insert(model->name).second)
                models.push_back(std::move(*model));
        });
    std::ranges::sort(
        models, {}, [](const auto& model) { return std::pair(model.size, model.name); });
    return models;
}

std::vector<fs::path> WhisperEngine::usualPrograms()
{
    std::vector<fs::path> programs;
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (folder.starts_with('/'))
            programs.push_back(fs::path(folder) / "whisper-cli");
    programs.insert(programs.end(),
        { homeFolder() / ".local/bin/whisper-cli",
            homeFolder() / "whisper.cpp/build/bin/whisper-cli", "/usr/local/bin/whisper-cli" });
    return programs;
}

std::vector<fs::path> WhisperEngine::usualModelFolders()
{
    const auto data = userFolder("XDG_DATA_HOME", ".local/share");
    const auto cache = userFolder("XDG_CACHE_HOME", ".cache");
    return { data / "vesko/models", data / "whisper.cpp/models",
        homeFolder() / "whisper.cpp/models", cache / "whisper.cpp", cache / "whisper",
        "/usr/local/share/whisper.cpp/models", "/usr/share/whisper.cpp/models" };
}

const std::vector<std::string>& WhisperEngine::languages()
{
    static const std::vector<std::string> all{ "en", "zh", "de", "es", "ru", "ko", "fr", "ja", "pt",
        "tr", "pl", "ca", "nl", "ar", "sv", "it", "id", "hi", "fi", "vi", "he", "uk", "el", "ms",
        "cs", "ro", "da", "hu", "ta", "no", "nb", "th", "ur", "hr", "bg", "lt", "la", "mi", "ml",
        "cy", "sk", "te", "fa", "lv", "bn", "sr", "az", "sl", "kn", "et", "mk", "br", "eu", "is",
        "hy", "ne", "mn", "bs", "kk", "sq", "sw", "gl", "mr", "pa", "si", "km", "sn", "yo", "so",
        "af", "oc", "ka", "be", "tg", "sd", "gu", "am", "yi", "lo", "uz", "fo", "ht", "ps", "tk",
        "nn", "mt", "sa", "lb", "my", "bo", "tl", "fil", "mg", "as", "tt", "haw", "ln", "ha", "ba",
        "jv", "su" };
    return all;
}

WhisperEngine::WhisperEngine(const fs::path& program, const WhisperModel& model)
    : CommandEngine({ .name = "whisper.cpp",
          .words = { program, "--model", "{model}", "--file", "{wav}", "--language", "{language}",
              "--no-timestamps", "--no-prints", "--threads", std::to_string(recognitionThreads()) },
          .promptWords = { "--prompt", "{prompt}" },
          .model = model.file,
          .modelName = model.name })
    , m_multilingual(model.multilingual)
{
}

bool WhisperEngine::speaks(const std::string& language) const
{
    const auto code = SpokenLanguage::code(language);
    if (!m_multilingual)
        return code == "en";
    return code == "auto" || std::ranges::find(languages(), code) != languages().end();
}

int recognitionThreads()
{
    std::set<std::string> cores;
    eachEntry("/sys/devices/system/cpu", [&](const fs::path& cpu) {
        std::string threads;
        if (std::getline(std::ifstream(cpu / "topology/thread_siblings_list"), threads))
            cores.insert(threads);
    });
    const auto count
        = cores.empty() ? std::thread::hardware_concurrency() : static_cast<unsigned>(cores.size());
    return static_cast<int>(std::clamp(count, 1U, 4U));
}

} // namespace vesko
