#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <memory>

namespace vesko {

// Recognises with an engine, which works in a process of its own. One recognition runs at a time; a
// further one waits.
class EngineRecognizer final : public OnDeviceRecognizer {
public:
    explicit EngineRecognizer(std::shared_ptr<const SpeechEngine> engine);

    bool authorized() const override { return true; } // this desktop asks nobody
    bool supports(const std::string& language) const override;
    std::string systemLanguage() const override;
    bool available() const override { return true; }
    std::unique_ptr<Recognition> recognize(const std::filesystem::path& audio,
        const std::string& language, std::function<void(const Report&)> report) override;

private:
    struct Ticket;

    Task<> run(std::shared_ptr<Ticket> ticket, std::filesystem::path audio, std::string language,
        std::function<void(const Report&)> report);

    std::shared_ptr<const SpeechEngine> m_engine;
    Worker m_worker;
    TaskScope m_tasks;
};

} // namespace vesko
