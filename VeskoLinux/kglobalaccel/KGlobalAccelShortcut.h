#pragma once

#include "VeskoApp/platform/KeyInput.h"

#include <QObject>
#include <QString>

namespace vesko {

// The combination, or what the user has put in its place in the desktop's settings, by the service
// that has the global shortcuts of Plasma. Of keys it can have the space bar alone. A held shortcut
// is one press. Main thread; nothing here waits for the service.
class KGlobalAccelShortcut final : public QObject, public GlobalShortcut {
    Q_OBJECT

public:
    // Whether this session has such a service.
    static bool offered();

    ~KGlobalAccelShortcut() override;

    // True while it is not known that another program has the keys.
    bool install(const KeyCombination& combination, std::function<void()> onPressed) override;
    void remove() override;

private:
    void listen();
    Q_SLOT void pressed(const QString& component, const QString& action, qlonglong time);
    Q_SLOT void released(const QString& component, const QString& action, qlonglong time);

    std::function<void()> m_onPressed; // null: not installed
    bool m_held = false;
};

} // namespace vesko
