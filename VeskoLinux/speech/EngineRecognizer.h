#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <QObject>

#include <memory>

namespace vesko {

// Recognises with an engine, which works in a process of its own. One recognition of a file runs at
// a time, and one hearing beside it; further ones wait.
class EngineRecognizer final : public OnDeviceRecognizer {
public:
    explicit EngineRecognizer(std::shared_ptr<const SpeechEngine> engine);

    // For all that begins from now on.
    void use(std::shared_ptr<const SpeechEngine> engine);

    bool authorized() const override { return true; } // this desktop asks nobody
    bool supports(const std::string& language) const override;
    std::string systemLanguage() const override;
    bool available() const override { return true; }
    void expect(std::string words) override;
    std::unique_ptr<Hearing> hear(const std::string& language) override;
    std::unique_ptr<Recognition> recognize(const std::filesystem::path& audio,
        const std::string& language, std::function<void(const Report&)> report,
        std::unique_ptr<Hearing> heard) override;

private:
    class Listening;
    struct Ticket;

    Task<> listen(std::shared_ptr<Ticket> ticket);
    Task<> run(std::shared_ptr<Ticket> ticket, std::filesystem::path audio,
        std::shared_ptr<Ticket> heard, std::function<void(const Report&)> report);

    std::shared_ptr<const SpeechEngine> m_engine;
    std::string m_expected;
    QObject m_home; // what it hears of its worker
    Worker m_worker;
    Worker m_listener;
    TaskScope m_tasks;
};

} // namespace vesko
