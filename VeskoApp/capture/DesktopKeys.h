#pragma once

#include "VeskoApp/platform/DesktopShortcut.h"

#include <QObject>
#include <QString>

namespace vesko {

// The shortcut that the desktop keeps for the program, which the user can have added and taken away
// again. Main thread.
class DesktopKeys : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool offered READ offered CONSTANT)
    Q_PROPERTY(QString suggestion READ suggestion CONSTANT) // such as "Super+Alt+Space"
    Q_PROPERTY(QString keys READ keys NOTIFY changed) // of the one that is there; empty: none
    Q_PROPERTY(QString refusal READ refusal NOTIFY changed) // why none was added, if so

public:
    // Null where the desktop keeps none; else it outlives this.
    explicit DesktopKeys(DesktopShortcut* desktop)
        : m_desktop(desktop)
    {
    }

    bool offered() const { return m_desktop != nullptr; }
    QString suggestion() const;
    QString keys() const;
    const QString& refusal() const { return m_refusal; }

    Q_INVOKABLE void add();
    Q_INVOKABLE void remove();

Q_SIGNALS:
    void changed();

private:
    DesktopShortcut* m_desktop;
    QString m_refusal;
};

} // namespace vesko
