#pragma once

#include "VeskoApp/platform/StatusItem.h"

#include <QDBusServiceWatcher>
#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace vesko {

// The status icon as a StatusNotifierItem. Needs a QApplication.
//
// The desktop is asked once, and again when it tells of a change; nothing is polled, and nothing
// waits for its answers. A click on the icon itself opens the program; the menu is drawn by the
// desktop.
class TrayStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    TrayStatusItem();

    void show(const QIcon& icon, const QString& toolTip) override;
    void setCapture(const QString& title, bool enabled) override;
    bool visible() const override { return m_tray != nullptr; }

private:
    Q_SLOT void askForHost();
    void setHostPresent(bool present);
    void update();
    void add(const char* title, std::function<void()> StatusItem::* action);

    QDBusServiceWatcher m_watcher;
    QMenu m_menu;
    QAction* m_capture;
    QIcon m_icon;
    QString m_toolTip;
    bool m_wanted = false;
    bool m_hostPresent = false;
    std::unique_ptr<QSystemTrayIcon> m_tray;
};

} // namespace vesko
