#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoCore/speech/OpenRouterClient.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace vesko {

// The models that the settings offer, loaded at the user's request. The user's choices stay
// whatever comes. Main thread.
class ModelCatalog : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool loading READ loading NOTIFY loadingChanged)
    Q_PROPERTY(QString message READ shownMessage NOTIFY messageChanged) // empty for none

public:
    explicit ModelCatalog(OpenRouterClient client);

    // Loads both lists anew, unless that is under way. Both change, or neither.
    Q_INVOKABLE void refresh();
    // Gives up what refresh() began; the lists stay as they were.
    Q_INVOKABLE void cancel();

    // Empty until loaded.
    const std::vector<ProviderModel>& sttModels() const { return m_sttModels; }
    const std::vector<ProviderModel>& textModels() const { return m_textModels; }
    bool loading() const { return m_loading; }
    const std::string& message() const { return m_message; } // a key of the catalogues
    QString shownMessage() const;

Q_SIGNALS:
    void changed();
    void loadingChanged();
    void messageChanged();

private:
    using LoadedModels = Eventual<std::optional<std::vector<ProviderModel>>>;
    Task<> load();
    Task<> loadModels(Worker& network, bool transcription, LoadedModels into);

    OpenRouterClient m_client;
    std::vector<ProviderModel> m_sttModels;
    std::vector<ProviderModel> m_textModels;
    bool m_loading = false;
    std::string m_message;

    // Last, so that tasks end before what they use.
    Worker m_sttNetwork; // the two lists are loaded at the same time
    Worker m_textNetwork;
    std::optional<TaskScope> m_tasks{ std::in_place };
};

} // namespace vesko
