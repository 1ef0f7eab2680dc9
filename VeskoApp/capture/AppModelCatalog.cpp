// The models that the settings offer, loaded at the user's request.

#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <utility>

namespace vesko {

namespace {

QVariantList shown(const std::vector<ProviderModel>& models)
{
    QVariantList rows;
    for (const auto& model : models)
        rows << QVariantMap{ { QStringLiteral("id"), QString::fromStdString(model.id) },
            { QStringLiteral("name"), QString::fromStdString(model.name) } };
    return rows;
}

} // namespace

void AppModel::refreshCatalog()
{
    if (m_catalogLoading)
        return;
    assign(m_catalogLoading, true, &AppModel::catalogLoadingChanged);
    assign(m_catalogMessage, {}, &AppModel::catalogMessageChanged);
    m_tasks.spawn(loadCatalog());
}

// Both lists change, or neither.
Task<> AppModel::loadCatalog()
{
    const LoadedModels loadedSTT, loadedText;
    m_tasks.spawn(loadModels(m_sttCatalog, true, loadedSTT));
    m_tasks.spawn(loadModels(m_textCatalog, false, loadedText));
    auto stt = co_await loadedSTT;
    auto text = co_await loadedText;
    std::string message = L10N_KEY(
        "Vesko", "The model catalog could not be loaded. Your current choices were kept.");
    if (stt && text) {
        m_sttModels = std::move(*stt);
        m_textModels = std::move(*text);
        Q_EMIT catalogChanged();
        message = L10N_KEY("Vesko", "Model catalog updated");
    }
    assign(m_catalogMessage, std::move(message), &AppModel::catalogMessageChanged);
    assign(m_catalogLoading, false, &AppModel::catalogLoadingChanged);
}

// Nothing if they could not be loaded: what the user is told is the same whatever the reason.
Task<> AppModel::loadModels(Worker& network, bool transcription, LoadedModels into)
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

QVariantList AppModel::shownSTTModels() const
{
    return shown(m_sttModels);
}

QVariantList AppModel::shownTextModels() const
{
    return shown(m_textModels);
}

QString AppModel::catalogText() const
{
    return translated(m_catalogMessage);
}

} // namespace vesko
