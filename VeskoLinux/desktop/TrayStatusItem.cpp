#include "VeskoLinux/desktop/TrayStatusItem.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformmenu.h>
#include <qpa/qplatformsystemtrayicon.h>
#include <qpa/qplatformtheme.h>

namespace vesko {

namespace {

// The name that every implementation has, of whatever desktop.
const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

TrayStatusItem::TrayStatusItem()
    : m_watcher(
          watcherName, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) {
            setHostPresent(false);
            if (!owner.isEmpty())
                askForHost();
        });
    // From any sender: naming one would make Qt wait for the bus to resolve it, and all that a
    // stranger could bring about is one more question.
    auto bus = QDBusConnection::sessionBus();
    for (const auto* signal : { "StatusNotifierHostRegistered", "StatusNotifierHostUnregistered" })
        bus.connect(QString(), watcherPath, watcherName, QString::fromLatin1(signal), this,
            SLOT(askForHost()));
    askForHost();
}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::show(const QIcon& icon, const QString& toolTip)
{
    m_icon = icon;
    m_toolTip = toolTip;
    m_wanted = true;
    update();
}

void TrayStatusItem::setCapture(const QString& title, bool enabled)
{
    m_captureTitle = title;
    m_captureEnabled = enabled;
    if (m_menu)
        showCapture();
}

void TrayStatusItem::askForHost()
{
    auto question = QDBusMessage::createMethodCall(watcherName, watcherPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto* answer
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QVariant> reply = *answer;
        setHostPresent(reply.isValid() && reply.value().toBool());
        answer->deleteLater();
    });
}

void TrayStatusItem::setHostPresent(bool present)
{
    m_hostPresent = present;
    update();
    if (onVisibleChanged)
        onVisibleChanged();
}

void TrayStatusItem::update()
{
    if (!m_wanted || !m_hostPresent) {
        m_tray.reset();
        m_menu.reset();
        m_items.clear();
        return;
    }
    if (!m_tray)
        makeTray();
    if (!m_tray)
        return;
    m_tray->updateIcon(m_icon);
    m_tray->updateToolTip(m_toolTip);
}

// Not earlier than a host is there: Qt asks for one when the first icon is made, and never again.
void TrayStatusItem::makeTray()
{
    auto* theme = QGuiApplicationPrivate::platformTheme();
    m_tray.reset(theme ? theme->createPlatformSystemTrayIcon() : nullptr);
    if (!m_tray)
        return;
    connect(m_tray.get(), &QPlatformSystemTrayIcon::activated, this,
        [this](QPlatformSystemTrayIcon::ActivationReason reason) {
            if (reason == QPlatformSystemTrayIcon::Trigger && onOpen)
                onOpen();
        });
    m_tray->init();
    makeMenu();
}

void TrayStatusItem::makeMenu()
{
    m_menu.reset(m_tray->createMenu());
    if (!m_menu)
        return;
    add(m_captureTitle, &StatusItem::onCapture);
    showCapture();
    add(QCoreApplication::translate("Vesko", "Open Vesko"), &StatusItem::onOpen);
    add(QCoreApplication::translate("Vesko", "Settings…"), &StatusItem::onSettings);
    add({}, nullptr)->setIsSeparator(true);
    add(QCoreApplication::translate("Vesko", "Quit Vesko"), &StatusItem::onQuit);
    m_tray->updateMenu(m_menu.get());
}

QPlatformMenuItem* TrayStatusItem::add(
    const QString& title, std::function<void()> StatusItem::* action)
{
    auto* const item = m_items.emplace_back(m_menu->createMenuItem()).get();
    item->setText(title);
    connect(item, &QPlatformMenuItem::activated, this, [this, action] {
        if (action && this->*action)
            (this->*action)();
    });
    m_menu->insertMenuItem(item, nullptr);
    return item;
}

void TrayStatusItem::showCapture()
{
    QPlatformMenuItem* const capture = m_items.front().get();
    capture->setText(m_captureTitle);
    capture->setEnabled(m_captureEnabled);
    m_menu->syncMenuItem(capture);
}

} // namespace vesko
