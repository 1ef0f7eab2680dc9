#pragma once

#include <QObject>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoCore/speech/ModelList.h"

#include <QVariant>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Where the models for speech on this machine are had from, and where they go.
struct ModelSource {
    std::filesystem::path list; // SpeechModels.json
    std::string address; // of the folder of the files, with "/" at its end; empty for nowhere
    std::filesystem::path folder;
};

// Loads models at the user's word, one at a time. What has arrived stays when it is paused, or the
// program ends. Main thread; nothing here waits.
class ModelDownloads : public QObject {
    Q_OBJECT
    // Rows with "tag" and "name", which tells the size.
    Q_PROPERTY(QVariantList models READ models CONSTANT)
    Q_PROPERTY(bool loading READ loading NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed) // how far it is, or how it ended

public:
    explicit ModelDownloads(ModelSource source);

    QVariantList models();
    bool loading() const { return m_run != nullptr; }
    const QString& message() const { return m_message; }

    Q_INVOKABLE void get(const QString& name);
    Q_INVOKABLE void pause();

Q_SIGNALS:
    void changed();
    void arrived(); // a model stands in its folder

private:
    const std::vector<PublishedModel>& published();
    Task<> load(PublishedModel model);
    void arrive(const QString& name, int percent);
    void say(const QString& message);

    ModelSource m_source;
    std::optional<std::vector<PublishedModel>> m_published; // read when they are first looked at
    QString m_message;

    // Last, so that tasks end before what they use.
    Worker m_network;
    std::unique_ptr<TaskScope> m_run; // while it loads
};

} // namespace vesko
