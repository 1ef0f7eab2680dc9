#pragma once

#include "VeskoApp/platform/StatusItem.h"

#include <QDBusServiceWatcher>

#include <memory>
#include <vector>

class QPlatformMenu;
class QPlatformMenuItem;
class QPlatformSystemTrayIcon;

namespace vesko {

// The status icon as a StatusNotifierItem. Needs a QGuiApplication, of whose platform it takes the
// icon: the widget of the same purpose would bring all of Qt's widgets into memory.
//
// The desktop is asked once, and again when it tells of a change; nothing is polled, and nothing
// waits for its answers. A click on the icon itself opens the program; the menu is drawn by the
// desktop.
class TrayStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    TrayStatusItem();
    ~TrayStatusItem() override;

    void show(const QIcon& icon, const QString& toolTip) override;
    void setCapture(const QString& title, bool enabled) override;
    bool visible() const override { return m_tray != nullptr; }

private:
    Q_SLOT void askForHost();
    void setHostPresent(bool present);
    void update();
    void makeTray();
    void makeMenu();
    QPlatformMenuItem* add(const QString& title, std::function<void()> StatusItem::* action);
    void showCapture();

    QDBusServiceWatcher m_watcher;
    QString m_captureTitle;
    bool m_captureEnabled = true;
    QIcon m_icon;
    QString m_toolTip;
    bool m_wanted = false;
    bool m_hostPresent = false;
    // While the desktop has a place for them.
    std::vector<std::unique_ptr<QPlatformMenuItem>> m_items; // the capture first
    std::unique_ptr<QPlatformMenu> m_menu;
    std::unique_ptr<QPlatformSystemTrayIcon> m_tray;
};

} // namespace vesko
