#pragma once

#include "VeskoApp/preferences/Preferences.h"
#include "VeskoApp/status/StatusLine.h"

#include <QObject>
#include <QString>

#include <functional>

namespace vesko {

// The form of the user's own OpenRouter key: what stands in the secret store, and what is typed to
// replace it. The typed key is held here only until it is saved; one that can't be saved stays.
// Main thread; what it is given must outlive it.
class KeyForm : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString draft MEMBER m_draft NOTIFY draftChanged)
    Q_PROPERTY(bool hasKey READ hasKey NOTIFY changed)
    Q_PROPERTY(QString status READ status NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt NOTIFY changed)

public:
    // `onNotice` takes what is to be told in the window; a failure's cause goes to the status.
    KeyForm(
        Preferences& preferences, StatusLine& status, std::function<void(const QString&)> onNotice);

    bool hasKey() const { return m_preferences.hasKey(); }
    QString status() const;
    QString prompt() const;

    Q_INVOKABLE void save();
    Q_INVOKABLE void remove();

Q_SIGNALS:
    void changed();
    void draftChanged();

private:
    Task<> saved(std::string key);
    Task<> removed();
    void clearDraft();

    Preferences& m_preferences;
    StatusLine& m_status;
    std::function<void(const QString&)> m_onNotice;
    QString m_draft;
    TaskScope m_tasks;
};

} // namespace vesko
