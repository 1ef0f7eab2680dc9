#pragma once

#include "VeskoApp/platform/KeyInput.h"
#include "VeskoCore/base/Clock.h"

#include <QObject>
#include <QString>

#include <optional>

namespace vesko {

// The combination, or what the user has put in its place in the desktop's settings, by the service
// that has the global shortcuts of Plasma. Of keys it can have the space bar alone. A held shortcut
// is one press. Main thread; nothing here waits for the service.
class KGlobalAccelShortcut final : public QObject, public GlobalShortcut {
    Q_OBJECT

public:
    // Whether this session has such a service.
    static bool offered();

    // The clock outlives this.
    explicit KGlobalAccelShortcut(const Clock& clock)
        : m_clock(clock)
    {
    }
    ~KGlobalAccelShortcut() override;

    // True while it is not known that another program has the keys.
    bool install(const KeyCombination& combination, std::function<void()> onPressed) override;
    void remove() override;

    // Uptime at which the user held it last, which is now while it is held; nothing if never.
    std::optional<double> lastHeld() const;

private:
    void listen();
    Q_SLOT void pressed(const QString& component, const QString& action, qlonglong time);
    Q_SLOT void released(const QString& component, const QString& action, qlonglong time);

    std::function<void()> m_onPressed; // null: not installed
    const Clock& m_clock;
    bool m_held = false;
    std::optional<double> m_releasedAt; // uptime
};

} // namespace vesko
