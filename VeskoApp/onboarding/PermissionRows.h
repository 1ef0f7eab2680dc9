#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/platform/Platform.h"

#include <QObject>
#include <QVariant>

#include <functional>

namespace vesko {

// The four things that the machine has to let the program do, with whether it does and a button
// that does about it what can be done from here. To read them asks the user nothing; they are read
// again whenever the user comes back to the program. One for all windows. Main thread; the platform
// must outlive it.
class PermissionRows : public QObject {
    Q_OBJECT
    // Rows with "name", "line", "allowed", "status" and "button".
    Q_PROPERTY(QVariantList rows READ rows NOTIFY rowsChanged)

public:
    using Notify = std::function<void(const QString&)>;

    // `restartFn` watches the keys anew; `spokenLanguage` is the tag that the user dictates in,
    // "auto" for the system's.
    PermissionRows(Platform& platform, std::function<void()> restartFn,
        std::function<std::string()> spokenLanguage);
    ~PermissionRows() override;

    QVariantList rows() const;
    // Reads them again.
    void revise();
    // The button of that row. Tells what the user has to know or to do next, if anything.
    void press(int row, const Notify& notify);

Q_SIGNALS:
    void rowsChanged();

private:
    enum Row { microphone, speechRecognition, accessibility, inputMonitoring };
    bool allowed(Row row) const;
    std::string language() const;
    QString aboutSpeech() const;
    // That part of the desktop's settings was to be opened; what to do there, and whether it isn't
    // there.
    QString openSettings(SettingsPanel panel, const QString& advice);
    Task<> askForMicrophone(Notify notify);
    Task<> turnAccessibilityOn(Notify notify);

    Platform& m_platform;
    std::function<void()> m_restartFn;
    std::function<std::string()> m_spokenLanguage;
    TaskScope m_tasks;
};

} // namespace vesko
