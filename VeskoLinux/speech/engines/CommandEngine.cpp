#include "VeskoLinux/speech/engines/CommandEngine.h"

#include "VeskoCore/speech/SpokenLanguage.h"
#include "VeskoCore/speech/Wave.h"
#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/engines/ChildProcess.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <utility>

namespace vesko {

namespace {

// A folder that only the user can look into; in memory where the desktop has such a place.
class PrivateFolder {
public:
    PrivateFolder()
    {
        const char* memory = std::getenv("XDG_RUNTIME_DIR");
        const std::filesystem::path place
            = memory && *memory == '/' ? memory : std::filesystem::temp_directory_path();
        std::string name = place / "vesko-speech-XXXXXX";
        if (!::mkdtemp(name.data()))
            throw EngineFailure("there is no room for the sound");
        m_path = name;
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// Whisper's name for a language, which is everybody's but for these.
std::string programLanguage(const std::string& tag)
{
    const std::string code = SpokenLanguage::code(tag);
    constexpr std::array<std::pair<const char*, const char*>, 3> others{ { { "nb", "no" },
        { "fil", "tl" }, { "jv", "jw" } } };
    for (const auto& [ours, theirs] : others)
        if (code == ours)
            return theirs;
    return code;
}

class CommandSession final : public SpeechEngine::Session {
public:
    CommandSession(CommandEngine::Command command, SpeechEngine::Wish wish, std::stop_token stop)
        : m_command(std::move(command))
        , m_wish(std::move(wish))
        , m_stop(std::move(stop))
        , m_sound(m_folder.path() / "speech.wav")
    {
        if (!m_wish.prompt.empty())
            m_command.words.insert(
                m_command.words.end(), m_command.promptWords.begin(), m_command.promptWords.end());
        requireTrusted(m_command.words.at(0));
    }

    EngineAnswer heard(std::span<const std::int16_t> piece) override
    {
        std::ofstream file(m_sound, std::ios::binary | std::ios::trunc);
        file << wave(piece, speechRate);
        file.close();
        if (!file)
            throw EngineFailure("there is no room for the sound");
        std::vector<std::string> words;
        for (const auto& word : m_command.words)
            words.push_back(filled(word));
        ChildProcess process(words, m_stop, {});
        EngineAnswer answer;
        answer.text = spokenText(process.rest());
        if (!m_command.modelName.empty())
            answer.model = m_command.modelName;
        return answer;
    }

private:
    // What is put in is not looked at again.
    std::string filled(const std::string& word) const
    {
        const std::array<std::pair<std::string, std::string>, 4> values{ { { "{wav}", m_sound },
            { "{language}", programLanguage(m_wish.language) }, { "{model}", m_command.model },
            { "{prompt}", m_wish.prompt } } };
        std::string text;
        for (std::size_t at = 0; at < word.size();) {
            std::size_t taken = 0;
            for (const auto& [name, value] : values)
                if (word.compare(at, name.size(), name) == 0) {
                    text += value;
                    taken = name.size();
                }
            if (taken == 0)
                text += word[at];
            at += taken == 0 ? 1 : taken;
        }
        return text;
    }

    CommandEngine::Command m_command;
    SpeechEngine::Wish m_wish;
    std::stop_token m_stop;
    PrivateFolder m_folder;
    std::filesystem::path m_sound;
};

} // namespace

CommandEngine::CommandEngine(Command command)
    : m_command(std::move(command))
{
}

std::unique_ptr<SpeechEngine::Session> CommandEngine::begin(
    const Wish& wish, std::stop_token stop) const
{
    return std::make_unique<CommandSession>(m_command, wish, std::move(stop));
}

} // namespace vesko
