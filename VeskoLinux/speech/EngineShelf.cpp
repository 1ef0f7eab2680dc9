#include "VeskoLinux/speech/EngineShelf.h"

#include "VeskoCore/base/Folder.h"
#include "VeskoLinux/speech/engines/ChildProcess.h"
#include "VeskoLinux/speech/engines/PocketSphinxEngine.h"
#include "VeskoLinux/speech/engines/ServerEngine.h"
#include "VeskoLinux/speech/engines/WhisperEngine.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <thread>

namespace vesko {

namespace {

namespace fs = std::filesystem;

struct Shelved {
    FoundEngine found;
    std::shared_ptr<const SpeechEngine> engine;
};

bool isTrusted(const fs::path& program)
{
    try {
        requireTrusted(program);
        return true;
    } catch (const EngineFailure&) {
        return false;
    }
}

// The best one first: the largest that still keeps up with speech on an ordinary machine, then
// those below it, then those above.
std::vector<Shelved> whispers(const EngineShelf::Places& places)
{
    constexpr std::uintmax_t keepsUp = 600'000'000; // bytes; four times the speed of "medium"
    const auto program = std::ranges::find_if(places.whisperPrograms, isTrusted);
    if (program == places.whisperPrograms.end())
        return {};
    auto models = WhisperModel::in(places.whisperModels);
    const auto slow
        = std::ranges::find_if(models, [](const auto& model) { return model.size > keepsUp; });
    std::ranges::reverse(models.begin(), slow);
    std::vector<Shelved> all;
    for (const auto& model : models)
        all.push_back({ .found = { .id = "whisper.cpp/" + model.name,
                            .name = "whisper.cpp",
                            .model = model.name,
                            .version = "",
                            .licence = "MIT",
                            .languages = model.multilingual ? WhisperEngine::languages()
                                                            : std::vector<std::string>{ "en" },
                            .detectsLanguage = model.multilingual },
            .engine = std::make_shared<WhisperEngine>(*program, model) });
    return all;
}

std::optional<Shelved> introduced(const fs::path& program, const std::stop_token& stop)
{
    try {
        auto hello = ContractEngine::introduced({ program }, stop);
        FoundEngine found{ .id = "engine/" + hello.name,
            .name = hello.name,
            .model = "",
            .version = hello.version,
            .licence = hello.licence,
            .languages = hello.languages,
            .detectsLanguage = hello.detectsLanguage };
        return Shelved{ std::move(found),
            std::make_shared<ContractEngine>(std::vector<std::string>{ program }, hello) };
    } catch (const std::exception&) {
        return std::nullopt; // a program, but no engine
    }
}

std::vector<fs::path> contractPrograms(const EngineShelf::Places& places)
{
    constexpr std::size_t most = 20; // each is started
    std::vector<fs::path> programs;
    for (const auto& folder : places.contractEngines)
        eachEntry(folder, [&](const fs::path& file) {
            if (isTrusted(file))
                programs.push_back(file);
        });
    std::ranges::sort(programs);
    programs.resize(std::min(programs.size(), most));
    return programs;
}

// They are asked beside one another, since one that never says who it is takes as long as it may;
// and nobody is waited for once the wanted one has answered.
std::vector<Shelved> contractEngines(const EngineShelf::Places& places, const std::stop_token& stop,
    const std::optional<std::string>& wanted = std::nullopt)
{
    const auto programs = contractPrograms(places);
    std::vector<std::optional<Shelved>> answers(programs.size());
    std::stop_source enough;
    const std::stop_callback unwanted(stop, [&] { enough.request_stop(); });
    {
        std::vector<std::jthread> asking;
        for (std::size_t i = 0; i < programs.size(); ++i)
            asking.emplace_back([&, i] {
                answers[i] = introduced(programs[i], enough.get_token());
                if (answers[i] && answers[i]->found.id == wanted)
                    enough.request_stop();
            });
    }
    std::vector<Shelved> all;
    for (auto& answer : answers)
        if (answer)
            all.push_back(std::move(*answer));
    return all;
}

Shelved pocketSphinx(const EngineShelf::Places& places)
{
    auto engine = std::make_shared<PocketSphinxEngine>(places.pocketSphinx);
    return { .found = { .id = "pocketsphinx",
                 .name = "pocketsphinx",
                 .model = "",
                 .version = "5prealpha",
                 .licence = "BSD-2-Clause",
                 .languages = engine->languages() },
        .engine = engine };
}

std::vector<Shelved> shelf(const EngineShelf::Places& places, const std::stop_token& stop)
{
    auto all = whispers(places);
    std::ranges::move(contractEngines(places, stop), std::back_inserter(all));
    all.push_back(pocketSphinx(places));
    return all;
}

// As a shell finds it.
std::string programOf(const std::string& word)
{
    const char* path = std::getenv("PATH");
    std::istringstream folders(word.find('/') == std::string::npos && path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (folder.starts_with('/') && isTrusted(fs::path(folder) / word))
            return fs::path(folder) / word;
    return word;
}

std::shared_ptr<const SpeechEngine> chosen(
    const EngineShelf::Places& places, const EngineChoice& choice, const std::stop_token& stop)
{
    const bool takesSound = std::ranges::any_of(
        choice.command, [](const auto& word) { return word.find("{wav}") != std::string::npos; });
    if (choice.id == "command" && takesSound) {
        auto words = choice.command;
        words.front() = programOf(words.front());
        return std::make_shared<CommandEngine>(CommandEngine::Command{ .name = "command",
            .words = std::move(words),
            .model = choice.commandModel,
            .modelName = choice.commandModelName() });
    }
    if (choice.id == "server" && TranscriptionServer::endpoint(choice.serverAddress)) {
        TranscriptionServer::Place place{ choice.serverAddress, choice.serverModel };
        if (!choice.serverKey.empty())
            place.key = choice.serverKey;
        return std::make_shared<ServerEngine>(std::move(place));
    }
    auto engines = choice.id.starts_with("engine/") ? contractEngines(places, stop, choice.id)
        : choice.id.starts_with("whisper.cpp/")     ? whispers(places)
                                                    : std::vector{ pocketSphinx(places) };
    for (auto& shelved : engines)
        if (shelved.found.id == choice.id)
            return shelved.engine;
    return nullptr;
}

} // namespace

EngineShelf::Places EngineShelf::usualPlaces(const fs::path& programs, const fs::path& data)
{
    return { .pocketSphinx = programs / "vesko-pocketsphinx",
        .contractEngines
        = { data / "vesko/engines", programs.parent_path().parent_path() / "lib/vesko/engines" },
        .whisperPrograms = WhisperEngine::usualPrograms(),
        .whisperModels = WhisperEngine::usualModelFolders() };
}

EngineShelf::EngineShelf(
    Places places, std::function<void(std::shared_ptr<const SpeechEngine>)> use)
    : m_places(std::move(places))
    , m_use(std::move(use))
{
}

Task<std::vector<FoundEngine>> EngineShelf::find()
{
    co_return co_await m_finding.run([places = m_places](const std::stop_token& stop) {
        std::vector<FoundEngine> found;
        for (auto& shelved : shelf(places, stop))
            found.push_back(std::move(shelved.found));
        return found;
    });
}

Task<bool> EngineShelf::use(EngineChoice choice)
{
    auto engine = co_await m_fetching.run(
        [places = m_places, choice = std::move(choice)](
            const std::stop_token& stop) { return chosen(places, choice, stop); });
    if (!engine)
        co_return false;
    m_use(std::move(engine));
    co_return true;
}

} // namespace vesko
