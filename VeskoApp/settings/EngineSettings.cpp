#include "VeskoApp/settings/EngineSettings.h"

#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/TranscriptionAttempt.h"
#include "VeskoCore/speech/SpokenLanguage.h"
#include "VeskoCore/speech/TranscriptionServer.h"

#include <QCollator>

#include <algorithm>

namespace vesko {

namespace {

QVariantMap row(const QString& tag, const QString& name, const QString& detail)
{
    return { { QStringLiteral("tag"), tag }, { QStringLiteral("name"), name },
        { QStringLiteral("detail"), detail } };
}

// As its attempts are named.
QString shownName(const FoundEngine& engine)
{
    TranscriptionAttempt attempt;
    attempt.provider = onDeviceProvider;
    attempt.model = engine.name + (engine.model.empty() ? "" : "/" + engine.model);
    return QString::fromStdString(attempt.modelInWords());
}

} // namespace

EngineSettings::EngineSettings(const Neighbours& neighbours)
    : m_to(neighbours)
    , m_trial(neighbours.trial)
{
    connect(&m_to.preferences, &Preferences::changed, this, &EngineSettings::changed);
    connect(&m_to.engines, &EngineSelection::settled, this,
        [this] { m_tasks.spawn(learnWhetherThere()); });
    connect(&m_to.downloads, &ModelDownloads::arrived, this, &EngineSettings::look);
    m_tasks.spawn(learnWhetherThere());
}

void EngineSettings::look()
{
    m_tasks.spawn(learnOfKey());
    if (!m_isThere && !m_trial.busy())
        m_to.engines.keyChanged();
    if (std::exchange(m_looking, true))
        return;
    Q_EMIT enginesChanged();
    m_tasks.spawn(find());
}

Task<> EngineSettings::find()
{
    m_found = co_await m_to.platform.speechEngines.find();
    m_looking = false;
    Q_EMIT enginesChanged();
    Q_EMIT changed();
}

Task<> EngineSettings::learnWhetherThere()
{
    m_isThere = co_await m_to.engines.isThere();
    Q_EMIT changed();
}

const FoundEngine* EngineSettings::chosen() const
{
    const auto found = std::ranges::find(m_found, m_to.preferences.engine.get(), &FoundEngine::id);
    return found == m_found.end() ? nullptr : &*found;
}

QVariantList EngineSettings::engines() const
{
    QVariantList rows;
    for (const auto& engine : m_found)
        rows << row(QString::fromStdString(engine.id), shownName(engine), languagesOf(engine));
    if (rows.isEmpty())
        return rows; // still looking
    rows << row(QStringLiteral("command"), translated(L10N_KEY("Vesko", "A program of your own")),
        translated(L10N_KEY("Vesko", "Any program that prints the words of a WAV file.")));
    rows << row(QStringLiteral("server"), translated(L10N_KEY("Vesko", "A server of your own")),
        translated(L10N_KEY("Vesko",
            "Any server with OpenAI's way to transcribe. The sound leaves this computer unless the "
            "server runs on it.")));
    return rows;
}

QString EngineSettings::languagesOf(const FoundEngine& engine) const
{
    constexpr std::size_t most = 4; // that are named
    QStringList parts;
    std::vector<std::string> codes;
    for (const auto& tag : engine.languages)
        if (const auto code = SpokenLanguage::code(tag);
            std::ranges::find(codes, code) == codes.end())
            codes.push_back(code);
    if (codes.size() > most) {
        parts << translated(L10N_KEY("Vesko", "%1 languages"), codes.size());
    } else {
        QStringList names;
        for (const auto& code : codes)
            names << shownLanguage(code, m_to.platform.preferredLanguages);
        parts << names.join(QStringLiteral(", "));
    }
    if (engine.detectsLanguage)
        parts << translated(L10N_KEY("Vesko", "finds out the language"));
    if (engine.name == "pocketsphinx")
        parts << translated(L10N_KEY("Vesko", "lower case, no punctuation"));
    for (const auto& more : { engine.version, engine.licence })
        if (!more.empty())
            parts << QString::fromStdString(more);
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

QString EngineSettings::problem() const
{
    const auto& id = m_to.preferences.engine.get();
    if (id == "command" && !m_to.preferences.engineCommand.get().contains("{wav}"))
        return translated(L10N_KEY("Vesko",
            "Name a program and its arguments, with {wav} where the sound's file belongs. "
            "{language} and {model} stand for the language and the model."));
    if (id == "server" && !TranscriptionServer::endpoint(m_to.preferences.engineServer.get()))
        return translated(L10N_KEY("Vesko",
            "Enter an address that begins with https://. Plain http:// is for servers on this "
            "computer."));
    if (!m_isThere)
        return translated(L10N_KEY("Vesko",
            "The chosen engine isn't there. Until you choose another, recordings are only saved."));
    return {};
}

QString EngineSettings::advice() const
{
    const bool whisper = std::ranges::any_of(
        m_found, [](const auto& engine) { return engine.name == "whisper.cpp"; });
    if (m_looking || whisper)
        return {};
    return translated(L10N_KEY("Vesko",
        "For other languages, punctuation and far fewer wrong words, install whisper.cpp (its "
        "program whisper-cli is found by itself) and get a model below."));
}

QVariantList EngineSettings::languages() const
{
    const auto& preferred = m_to.platform.preferredLanguages;
    const auto& current = m_to.preferences.language.get();
    std::vector<std::string> tags;
    const auto add = [&](const std::string& tag) {
        const bool known = std::ranges::any_of(tags, [&](const auto& other) {
            return SpokenLanguage::code(other) == SpokenLanguage::code(tag);
        });
        if (!known && tag != "auto")
            tags.push_back(tag);
    };
    add(current);
    const auto* const engine = chosen();
    // Of the user's own ways nobody knows what they speak.
    for (const auto& language : engine ? engine->languages : SpokenLanguage::offered())
        add(SpokenLanguage::tag(SpokenLanguage::code(language)));
    std::vector<std::pair<QString, std::string>> named;
    for (const auto& tag : tags)
        named.emplace_back(shownLanguage(tag, preferred), tag);
    std::ranges::sort(named,
        [order = QCollator(QLocale(QString::fromStdString(interfaceLanguage(preferred))))](
            const auto& a, const auto& b) { return order.compare(a.first, b.first) < 0; });
    QVariantList rows{ row(
        QStringLiteral("auto"), translated(L10N_KEY("Vesko", "Automatic")), {}) };
    for (const auto& [name, tag] : named)
        rows << row(QString::fromStdString(tag), name, {});
    return rows;
}

QString EngineSettings::languageNote() const
{
    const auto& id = m_to.preferences.engine.get();
    const auto* const engine = chosen();
    if (id == "command" || id == "server")
        return translated(L10N_KEY("Vesko",
            "Automatic leaves it to your program or server to find out the language. If it is "
            "unavailable, the audio stays saved and you can choose OpenRouter."));
    if (engine && engine->detectsLanguage)
        return translated(L10N_KEY("Vesko",
            "Uses on-device speech only when this language is supported. Automatic lets the engine "
            "find out the language. If a model is unavailable, the audio stays saved and you can "
            "choose OpenRouter."));
    return translated(L10N_KEY("Vesko",
        "Uses on-device speech only when this language is supported. Automatic uses your Mac's "
        "language. If a model is unavailable, the audio stays saved and you can choose "
        "OpenRouter."));
}

QString EngineSettings::keyStatus() const
{
    return m_hasKey ? translated(L10N_KEY("Vesko", "Saved in Keychain"))
                    : translated(L10N_KEY("Vesko", "No key saved"));
}

Task<> EngineSettings::learnOfKey()
{
    try {
        m_hasKey = co_await m_to.keychain.has(Keychain::speechServer);
    } catch (const KeychainFailure&) {
        m_hasKey = false;
    }
    Q_EMIT keyChanged();
}

void EngineSettings::saveKey()
{
    m_tasks.spawn(save(m_keyDraft.toStdString()));
}

// An empty one takes away what is there.
Task<> EngineSettings::save(std::string text)
{
    const auto typed = Secret::taken(text);
    const std::string_view key = trimmed(typed);
    try {
        if (key.find_first_of("\r\n") != std::string_view::npos)
            throw VeskoError(VeskoError::missingKey);
        if (key.empty())
            co_await m_to.keychain.remove(Keychain::speechServer);
        else
            co_await m_to.keychain.save(key, Keychain::speechServer);
        m_hasKey = !key.empty();
        m_keyDraft.clear();
        Q_EMIT keyChanged();
        m_to.engines.keyChanged();
    } catch (const std::exception&) {
        m_to.status.report(std::current_exception());
    }
}

} // namespace vesko
