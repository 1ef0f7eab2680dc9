#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>
#include <vector>

namespace vesko {

// One screen saver on the session bus, and whether it covers the screen.
class ScreenSaver final : public QObject {
    Q_OBJECT

public:
    // By its name on the bus; the path and the interface follow from the name.
    explicit ScreenSaver(const QString& name);

    bool active() const { return m_active; }

private Q_SLOTS:
    void activeChanged(bool active);

private:
    void ask();

    QString m_name;
    bool m_active = false;
    QDBusServiceWatcher m_watcher;
};

// The screen savers of the desktops, each of which may come and go. Nothing is started for this.
class ScreenSavers {
public:
    ScreenSavers();

    // Whether one of them covers the screen, which only its user can end.
    bool active() const;

private:
    std::vector<std::unique_ptr<ScreenSaver>> m_savers;
};

} // namespace vesko
