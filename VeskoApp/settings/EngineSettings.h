#pragma once

#include <QObject>

// Behind a header of Qt: moc stumbles over <chrono> otherwise.
#include "VeskoApp/platform/Platform.h"
#include "VeskoApp/transcription/EngineTrial.h"
#include "VeskoApp/transcription/ModelDownloads.h"

#include <QVariant>

namespace vesko {

// What the settings form shows and does about speech on this machine: the engines that are there,
// which of them is in use, and the user's own ways to one. Main thread; what it is given must
// outlive it.
class EngineSettings : public QObject {
    Q_OBJECT
    // Rows with "tag", "name" and "detail": those found, the best first, and the user's own ways.
    Q_PROPERTY(QVariantList engines READ engines NOTIFY enginesChanged)
    Q_PROPERTY(bool looking READ looking NOTIFY enginesChanged) // for engines
    Q_PROPERTY(QString engine READ engine WRITE setEngine NOTIFY changed) // the tag of the chosen
    // What is wrong with the choice, and what would be gained by what isn't there; empty for
    // nothing.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString advice READ advice NOTIFY enginesChanged)
    // The spoken languages to choose from, rows with "tag" and "name".
    Q_PROPERTY(QVariantList languages READ languages NOTIFY changed)
    Q_PROPERTY(QString languageNote READ languageNote NOTIFY changed) // what is so for the engine
    Q_PROPERTY(QString command READ command WRITE setCommand NOTIFY changed)
    Q_PROPERTY(QString commandModel READ commandModel WRITE setCommandModel NOTIFY changed)
    Q_PROPERTY(QString server READ server WRITE setServer NOTIFY changed)
    Q_PROPERTY(QString serverModel READ serverModel WRITE setServerModel NOTIFY changed)
    Q_PROPERTY(QString keyDraft MEMBER m_keyDraft NOTIFY keyChanged)
    Q_PROPERTY(QString keyStatus READ keyStatus NOTIFY keyChanged)
    Q_PROPERTY(bool expectTerms READ expectTerms WRITE setExpectTerms NOTIFY changed)
    Q_PROPERTY(QObject* trial READ trial CONSTANT)

public:
    struct Neighbours {
        Platform& platform;
        Preferences& preferences;
        Keychain& keychain;
        EngineSelection& engines;
        ModelDownloads& downloads;
        StatusLine& status;
        EngineTrial::Neighbours trial;
    };

    explicit EngineSettings(const Neighbours& neighbours);

    // Looks for engines again: some may have been installed.
    Q_INVOKABLE void look();
    // What was typed goes into the secret store; an empty text takes the key out of it.
    Q_INVOKABLE void saveKey();

    QVariantList engines() const;
    bool looking() const { return m_looking; }
    QString engine() const { return shown(m_to.preferences.engine); }
    void setEngine(const QString& tag) { set(m_to.preferences.engine, tag); }
    QString problem() const;
    QString advice() const;
    QVariantList languages() const;
    QString languageNote() const;
    QString command() const { return shown(m_to.preferences.engineCommand); }
    void setCommand(const QString& line) { set(m_to.preferences.engineCommand, line); }
    QString commandModel() const { return shown(m_to.preferences.engineCommandModel); }
    void setCommandModel(const QString& name) { set(m_to.preferences.engineCommandModel, name); }
    QString server() const { return shown(m_to.preferences.engineServer); }
    void setServer(const QString& address) { set(m_to.preferences.engineServer, address); }
    QString serverModel() const { return shown(m_to.preferences.engineServerModel); }
    void setServerModel(const QString& name) { set(m_to.preferences.engineServerModel, name); }
    QString keyStatus() const;
    bool expectTerms() const { return m_to.preferences.expectTerms.get(); }
    void setExpectTerms(bool on) { m_to.preferences.expectTerms.set(on); }
    QObject* trial() { return &m_trial; }

Q_SIGNALS:
    void enginesChanged();
    void changed();
    void keyChanged();

private:
    using Text = Preferences::Setting<std::string>;
    static QString shown(const Text& setting) { return QString::fromStdString(setting.get()); }
    static void set(Text& setting, const QString& text) { setting.set(text.toStdString()); }
    Task<> find();
    Task<> learnWhetherThere();
    Task<> learnOfKey();
    Task<> save(std::string key);
    const FoundEngine* chosen() const;
    QString languagesOf(const FoundEngine& engine) const;

    Neighbours m_to;
    std::vector<FoundEngine> m_found;
    bool m_looking = false;
    bool m_isThere = true;
    bool m_hasKey = false;
    QString m_keyDraft;
    TaskScope m_tasks;
    EngineTrial m_trial; // last: its end gives an engine back, which is told here
};

} // namespace vesko
