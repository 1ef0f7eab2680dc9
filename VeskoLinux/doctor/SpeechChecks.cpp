#include "VeskoLinux/doctor/Checks.h"

#include "VeskoCore/library/TranscriptionAttempt.h"

#include <algorithm>

namespace vesko {

namespace {

// Nothing of the user's own ways is told: a command or an address may hold a name, or a key.
std::string shownName(const std::string& id)
{
    if (id == "command")
        return "the program of the settings";
    if (id == "server")
        return "the server of the settings";
    constexpr std::string_view byContract = "engine/";
    TranscriptionAttempt attempt;
    attempt.provider = onDeviceProvider;
    attempt.model = id.starts_with(byContract) ? id.substr(byContract.size()) : id;
    return attempt.modelInWords();
}

std::string described(const FoundEngine& engine)
{
    constexpr std::size_t most = 4; // that are named
    std::string languages;
    if (engine.languages.size() > most)
        languages = std::to_string(engine.languages.size()) + " languages";
    else
        for (const auto& tag : engine.languages)
            languages += (languages.empty() ? "" : ", ") + tag;
    if (languages.empty())
        languages = "no language";
    if (engine.detectsLanguage)
        languages += ", finds out which is spoken";
    return shownName(engine.id) + " (" + languages + ")";
}

} // namespace

Finding lookAtRecognizer(const SpeechHere& speech)
{
    const auto chosen = std::ranges::find(speech.found, speech.chosen, &FoundEngine::id);
    const auto name = chosen == speech.found.end() ? shownName(speech.chosen) : described(*chosen);
    Finding finding = Finding::fine(name);
    if (!speech.isThere)
        finding = Finding::wanting(name + " is chosen and isn't there",
            "Install it again, choose another in the settings, or use OpenRouter.");
    else if (!speech.speaks)
        finding = Finding::wanting(name + " doesn't speak the language (" + speech.language + ")",
            speech.chosen == "pocketsphinx"
                ? "Install its model, such as pocketsphinx-en-us, choose another engine or "
                  "language in the settings, or use OpenRouter."
                : "Choose another engine or language in the settings, or use OpenRouter.");
    if (!speech.inUse)
        return Finding::fact("speech goes to OpenRouter; on this computer: " + finding.seen);
    return finding;
}

Finding lookAtOtherEngines(const SpeechHere& speech)
{
    std::string others;
    for (const auto& engine : speech.found)
        if (engine.id != speech.chosen)
            others += (others.empty() ? "" : "; ") + described(engine);
    return Finding::fact(others.empty() ? "none" : others);
}

} // namespace vesko
