#include "VeskoLinux/desktop/TrayStatusItem.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vesko {

namespace {

// The name that every implementation has, of whatever desktop.
const auto watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

TrayStatusItem::TrayStatusItem()
    : m_watcher(
          watcherName, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange)
    , m_capture(m_menu.addAction(QString()))
{
    connect(m_capture, &QAction::triggered, this, [this] {
        if (onCapture)
            onCapture();
    });
    add(QT_TRANSLATE_NOOP("Vesko", "Open Vesko"), &StatusItem::onOpen);
    add(QT_TRANSLATE_NOOP("Vesko", "Settings…"), &StatusItem::onSettings);
    m_menu.addSeparator();
    add(QT_TRANSLATE_NOOP("Vesko", "Quit Vesko"), &StatusItem::onQuit);

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

void TrayStatusItem::show(const QIcon& icon, const QString& toolTip)
{
    m_icon = icon;
    m_toolTip = toolTip;
    m_wanted = true;
    update();
}

void TrayStatusItem::setCapture(const QString& title, bool enabled)
{
    m_capture->setText(title);
    m_capture->setEnabled(enabled);
}

void TrayStatusItem::add(const char* title, std::function<void()> StatusItem::* action)
{
    const auto* item = m_menu.addAction(QCoreApplication::translate("Vesko", title));
    connect(item, &QAction::triggered, this, [this, action] {
        if (this->*action)
            (this->*action)();
    });
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
}

void TrayStatusItem::update()
{
    if (!m_wanted || !m_hostPresent) {
        m_tray.reset();
        return;
    }
    if (!m_tray) {
        // Not earlier: Qt asks for a host when the first one is made, and never again.
        m_tray = std::make_unique<QSystemTrayIcon>();
        m_tray->setContextMenu(&m_menu);
        connect(m_tray.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger && onOpen)
                    onOpen();
            });
    }
    m_tray->setIcon(m_icon);
    m_tray->setToolTip(m_toolTip);
    m_tray->show();
}

} // namespace vesko
