#include "VeskoApp/transcription/ModelDownloads.h"

#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/speech/ModelDownload.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace vesko {

ModelDownloads::ModelDownloads(ModelSource source)
    : m_source(std::move(source))
{
}

const std::vector<PublishedModel>& ModelDownloads::published()
{
    if (m_published)
        return *m_published;
    m_published.emplace();
    std::ifstream file(m_source.list);
    const std::string text{ std::istreambuf_iterator<char>(file), {} };
    try {
        if (!m_source.address.empty())
            m_published = publishedModels(text);
    } catch (const std::runtime_error&) {
        // An installation without the list has none to offer.
    }
    return *m_published;
}

QVariantList ModelDownloads::models()
{
    QVariantList rows;
    for (const auto& model : published())
        rows << QVariantMap{ { QStringLiteral("tag"), QString::fromStdString(model.name) },
            { QStringLiteral("name"), QString::fromStdString(model.name + ", " + model.size) } };
    return rows;
}

void ModelDownloads::get(const QString& name)
{
    const auto& models = published();
    const auto model = std::ranges::find(models, name.toStdString(), &PublishedModel::name);
    if (m_run || model == models.end())
        return;
    m_run = std::make_unique<TaskScope>();
    arrive(name, 0);
    m_run->spawn(load(*model));
}

void ModelDownloads::pause()
{
    if (std::exchange(m_run, nullptr))
        say(translated(ModelFailure(ModelFailure::stopped).errorDescription()));
}

Task<> ModelDownloads::load(PublishedModel model)
{
    const auto name = QString::fromStdString(model.name);
    QString outcome;
    try {
        co_await m_network.run([this, model, name, source = m_source](const std::stop_token& stop) {
            int told = 0;
            const auto tell = [&](std::uintmax_t bytes) {
                const auto percent = static_cast<int>(bytes * 100 / model.bytes());
                if (std::exchange(told, percent) != percent)
                    QMetaObject::invokeMethod(this, [this, name, percent, stop] {
                        if (!stop.stop_requested())
                            arrive(name, percent);
                    });
            };
            downloadModel(model, source.address, source.folder, tell, stop);
        });
        outcome = translated(L10N_KEY("Vesko", "The model %1 is there.")).arg(name);
        Q_EMIT arrived();
    } catch (const ModelFailure& failure) {
        outcome = translated(failure.errorDescription());
    } catch (const std::exception&) {
        outcome = translated(ModelFailure(ModelFailure::unreachable).errorDescription());
    }
    // Later: this task can't end its own scope.
    QMetaObject::invokeMethod(
        this,
        [this, outcome, run = m_run.get()] {
            if (m_run.get() != run)
                return; // it was paused, and another began
            m_run.reset();
            say(outcome);
        },
        Qt::QueuedConnection);
}

void ModelDownloads::arrive(const QString& name, int percent)
{
    if (m_run)
        say(translated(L10N_KEY("Vesko", "Loading %1: %2 %"))
                .arg(name)
                .arg(std::min(percent, 100)));
}

void ModelDownloads::say(const QString& message)
{
    m_message = message;
    Q_EMIT changed();
}

} // namespace vesko
