#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/OnDeviceRecognizer.h"

namespace vesko {

// Recognises with PocketSphinx and whatever models are installed. A model is loaded for each
// recording and dropped after it: it is large, and most of the time nobody speaks. The text is in
// lower case, without punctuation. One recognition runs at a time; a further one waits.
class PocketSphinxRecognizer final : public OnDeviceRecognizer {
public:
    PocketSphinxRecognizer();
    // With the models of another folder.
    explicit PocketSphinxRecognizer(std::filesystem::path models);

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

    std::filesystem::path m_models;
    Worker m_worker;
    TaskScope m_tasks;
};

} // namespace vesko
