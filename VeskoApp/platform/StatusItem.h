#pragma once

#include <QIcon>
#include <QString>

#include <functional>

namespace vesko {

// The icon of the program among the desktop's status icons, with its menu: capture, Open Vesko,
// Settings…, a separator, Quit Vesko. Main thread only. A desktop without such a place shows
// nothing, and one whose place appears later shows the icon then.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    virtual void show(const QIcon& icon, const QString& toolTip) = 0;
    virtual void setCapture(const QString& title, bool enabled) = 0;
    // Whether the desktop shows the icon now.
    virtual bool visible() const = 0;

    std::function<void()> onCapture;
    std::function<void()> onOpen;
    std::function<void()> onSettings;
    std::function<void()> onQuit;
    // visible() may have changed.
    std::function<void()> onVisibleChanged;
};

} // namespace vesko
