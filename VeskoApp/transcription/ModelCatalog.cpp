#include "VeskoApp/transcription/ModelCatalog.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

ModelCatalog::ModelCatalog(OpenRouterClient client)
    : m_client(std::move(client))
{
}

void ModelCatalog::refresh()
{
    if (m_loading)
        return;
    assign(*this, m_loading, true, &ModelCatalog::loadingChanged);
    assign(*this, m_message, {}, &ModelCatalog::messageChanged);
    m_tasks->spawn(load());
}

void ModelCatalog::cancel()
{
    m_tasks.emplace();
    assign(*this, m_loading, false, &ModelCatalog::loadingChanged);
}

Task<> ModelCatalog::load()
{
    const LoadedModels loadedSTT, loadedText;
    m_tasks->spawn(loadModels(m_sttNetwork, true, loadedSTT));
    m_tasks->spawn(loadModels(m_textNetwork, false, loadedText));
    auto stt = co_await loadedSTT;
    auto text = co_await loadedText;
    std::string message = L10N_KEY(
        "Vesko", "The model catalog could not be loaded. Your current choices were kept.");
    if (stt && text) {
        m_sttModels = std::move(*stt);
        m_textModels = std::move(*text);
        Q_EMIT changed();
        message = L10N_KEY("Vesko", "Model catalog updated");
    }
    assign(*this, m_message, std::move(message), &ModelCatalog::messageChanged);
    assign(*this, m_loading, false, &ModelCatalog::loadingChanged);
}

// Nothing if they could not be loaded: what the user is told is the same whatever the reason.
Task<> ModelCatalog::loadModels(Worker& network, bool transcription, LoadedModels into)
{
    std::optional<std::vector<ProviderModel>> models;
    try {
        models = co_await network.run([client = m_client, transcription](std::stop_token stop) {
            return client.models(transcription, std::move(stop));
        });
    } catch (const std::exception&) {
    }
    into.set(std::move(models));
}

QString ModelCatalog::shownMessage() const
{
    return translated(m_message);
}

} // namespace vesko
