#include "VeskoLinux/speech/engines/ContractEngine.h"

#include "VeskoLinux/speech/engines/ChildProcess.h"

#include <utility>

namespace vesko {

namespace {

// A piece may take as long as the recording's run lets it: whoever waits for that has the watch.
constexpr auto answerPatience = std::chrono::hours(1);

EngineHello greeted(ChildProcess& process, std::chrono::milliseconds patience)
{
    EngineHelloReader reader;
    while (!reader.take(process.line(patience)))
        ;
    return reader.hello();
}

class ContractSession final : public SpeechEngine::Session {
public:
    ContractSession(const std::vector<std::string>& command, const SpeechEngine::Wish& wish,
        std::chrono::milliseconds patience, std::stop_token stop)
        : m_process(command, std::move(stop), {})
    {
        greeted(m_process, patience);
        m_process.send(engineLanguageLine(wish.language));
        if (!wish.prompt.empty())
            m_process.send(enginePromptLine(wish.prompt));
    }

    EngineAnswer heard(std::span<const std::int16_t> piece) override
    {
        const std::string_view bytes(
            reinterpret_cast<const char*>(piece.data()), piece.size_bytes());
        m_process.send(enginePieceLine(bytes.size()));
        m_process.send(bytes);
        EngineAnswerReader reader;
        while (!reader.take(m_process.line(answerPatience)))
            ;
        return reader.answer();
    }

private:
    ChildProcess m_process;
};

} // namespace

EngineHello ContractEngine::introduced(const std::vector<std::string>& command,
    const std::stop_token& stop, std::chrono::milliseconds patience)
{
    ChildProcess process(command, stop, { .lowPriority = true });
    return greeted(process, patience);
}

ContractEngine::ContractEngine(
    std::vector<std::string> command, EngineHello hello, std::chrono::milliseconds patience)
    : m_command(std::move(command))
    , m_hello(std::move(hello))
    , m_patience(patience)
{
}

std::unique_ptr<SpeechEngine::Session> ContractEngine::begin(
    const Wish& wish, std::stop_token stop) const
{
    return std::make_unique<ContractSession>(m_command, wish, m_patience, std::move(stop));
}

} // namespace vesko
