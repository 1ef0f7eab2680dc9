#include "VeskoApp/transcription/EngineSelection.h"

#include "VeskoCore/speech/SpokenLanguage.h"

#include <QProcess>

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

// The one that the recogniser begins with.
constexpr auto first = "pocketsphinx";

EngineChoice choiceNamed(const std::string& id, const Preferences& preferences)
{
    EngineChoice choice{ .id = id };
    if (choice.id == "command") {
        const auto line = QString::fromStdString(preferences.engineCommand.get());
        for (const auto& word : QProcess::splitCommand(line))
            choice.command.push_back(word.toStdString());
        choice.commandModel = preferences.engineCommandModel.get();
    } else if (choice.id == "server") {
        choice.serverAddress = preferences.engineServer.get();
        choice.serverModel = preferences.engineServerModel.get();
    }
    return choice;
}

bool speaks(const FoundEngine& engine, const std::string& language)
{
    return std::ranges::any_of(engine.languages, [&](const std::string& tag) {
        return SpokenLanguage::code(tag) == SpokenLanguage::code(language);
    });
}

} // namespace

EngineSelection::EngineSelection(
    SpeechEngines& engines, Preferences& preferences, Keychain& keychain)
    : m_engines(engines)
    , m_preferences(preferences)
    , m_keychain(keychain)
    , m_seen{ .id = first }
{
    connect(&m_preferences, &Preferences::changed, this, &EngineSelection::revise);
    revise();
}

EngineChoice EngineSelection::choiceOf(const Preferences& preferences)
{
    return choiceNamed(preferences.engine.get(), preferences);
}

std::string EngineSelection::named() const
{
    constexpr std::string_view byContract = "engine/";
    if (m_seen.id.starts_with(byContract))
        return m_seen.id.substr(byContract.size());
    const auto model = m_seen.id == "command" ? m_seen.commandModelName()
        : m_seen.id == "server"               ? m_seen.serverModel
                                              : "";
    return m_seen.id + (model.empty() ? "" : "/" + model);
}

void EngineSelection::revise()
{
    auto choice = choiceOf(m_preferences);
    if (choice == m_seen)
        return;
    m_seen = std::move(choice);
    applyAgain();
}

void EngineSelection::applyAgain()
{
    m_again = true;
    if (!std::exchange(m_applying, true))
        m_tasks.spawn(apply());
}

Task<> EngineSelection::apply()
{
    while (std::exchange(m_again, false))
        m_isThere = co_await putInUse(m_seen);
    m_applying = false;
    for (const auto& waiting : std::exchange(m_waiting, {}))
        waiting.set({});
    Q_EMIT settled();
}

Task<bool> EngineSelection::putInUse(EngineChoice choice)
{
    try {
        if (choice.id == "server") {
            auto key = co_await m_keychain.load(Keychain::speechServer);
            choice.serverKey = std::move(key).value_or(Secret());
        }
        co_return co_await m_engines.use(std::move(choice));
    } catch (const std::exception&) {
        co_return false; // the secret store, which says so elsewhere
    }
}

Task<bool> EngineSelection::isThere()
{
    if (m_applying) {
        m_waiting.emplace_back();
        co_await m_waiting.back();
    }
    co_return m_isThere;
}

Task<bool> EngineSelection::lookAgain()
{
    if (!m_isThere && !m_applying)
        applyAgain();
    co_return co_await isThere();
}

Task<bool> EngineSelection::lend(std::string id)
{
    co_await isThere(); // what is on its way would come behind
    co_return co_await putInUse(choiceNamed(id, m_preferences));
}

Task<> EngineSelection::chooseBest(std::string language)
{
    const auto before = m_preferences.engine.get();
    const auto found = co_await m_engines.find();
    const auto best = std::ranges::find_if(
        found, [&](const FoundEngine& engine) { return speaks(engine, language); });
    if (best == found.end() || m_preferences.engine.get() != before)
        co_return;
    m_preferences.engine.set(best->id);
    co_await isThere();
}

} // namespace vesko
