#include "VeskoLinux/kglobalaccel/KGlobalAccelShortcut.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vesko {

namespace {

const auto service = QStringLiteral("org.kde.kglobalaccel");
const auto component = QStringLiteral("app.vesko.Vesko");
const auto action = QStringLiteral("dictate");
// The service makes it of the component's name.
const auto componentPath = QStringLiteral("/component/app_vesko_Vesko");
const auto componentInterface = QStringLiteral("org.kde.kglobalaccel.Component");

constexpr uint present = 2; // of the service's flags: the program that has the action runs

// The action, with the names that the user finds it by in the desktop's settings.
QStringList actionId()
{
    return { component, action, QStringLiteral("Vesko"), QStringLiteral("Vesko") };
}

// 0 if the service has no such keys: it knows them by what they type, which for a place on the
// keyboard depends on the layout. Only the space bar is the same in all.
int keysOf(const KeyCombination& combination)
{
    if (combination.key != KeyCombination().key)
        return 0;
    return (combination.control ? int(Qt::ControlModifier) : 0)
        | (combination.alt ? int(Qt::AltModifier) : 0)
        | (combination.shift ? int(Qt::ShiftModifier) : 0)
        | (combination.super ? int(Qt::MetaModifier) : 0) | int(Qt::Key_Space);
}

QDBusMessage call(const QString& method, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(
        service, QStringLiteral("/kglobalaccel"), QStringLiteral("org.kde.KGlobalAccel"), method);
    message.setArguments(arguments);
    return message;
}

} // namespace

bool KGlobalAccelShortcut::offered()
{
    const auto* const bus = QDBusConnection::sessionBus().interface();
    return bus && bus->isServiceRegistered(service);
}

KGlobalAccelShortcut::~KGlobalAccelShortcut()
{
    remove();
}

bool KGlobalAccelShortcut::install(
    const KeyCombination& combination, std::function<void()> onPressed)
{
    remove();
    const int keys = keysOf(combination);
    if (keys == 0)
        return false;
    m_onPressed = std::move(onPressed);
    auto bus = QDBusConnection::sessionBus();
    listen();
    bus.asyncCall(call(QStringLiteral("doRegister"), { actionId() }));
    // The keys of the user's choice, if there were any before; else these.
    auto* const answer = new QDBusPendingCallWatcher(
        bus.asyncCall(call(QStringLiteral("setShortcut"),
            { actionId(), QVariant::fromValue(QList<int>{ keys }), present })),
        this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QList<int>> got = *answer;
        const bool refused = got.isError() || got.value().isEmpty() || got.value().first() == 0;
        if (refused && m_onPressed && onRefused)
            onRefused();
        answer->deleteLater();
    });
    return true;
}

void KGlobalAccelShortcut::listen()
{
    auto bus = QDBusConnection::sessionBus();
    bus.connect(service, componentPath, componentInterface, QStringLiteral("globalShortcutPressed"),
        this, SLOT(pressed(QString, QString, qlonglong)));
    bus.connect(service, componentPath, componentInterface,
        QStringLiteral("globalShortcutReleased"), this,
        SLOT(released(QString, QString, qlonglong)));
}

void KGlobalAccelShortcut::remove()
{
    if (!m_onPressed)
        return;
    m_onPressed = nullptr;
    m_held = false;
    auto bus = QDBusConnection::sessionBus();
    bus.disconnect(service, componentPath, componentInterface,
        QStringLiteral("globalShortcutPressed"), this, SLOT(pressed(QString, QString, qlonglong)));
    bus.disconnect(service, componentPath, componentInterface,
        QStringLiteral("globalShortcutReleased"), this,
        SLOT(released(QString, QString, qlonglong)));
    // Stays in the desktop's settings, with the user's keys, and does nothing.
    bus.send(call(QStringLiteral("setInactive"), { actionId() }));
}

void KGlobalAccelShortcut::pressed(const QString&, const QString& which, qlonglong)
{
    if (which == action && m_onPressed && !std::exchange(m_held, true))
        m_onPressed();
}

void KGlobalAccelShortcut::released(const QString&, const QString& which, qlonglong)
{
    if (which == action && std::exchange(m_held, false))
        m_releasedAt = m_clock.uptime();
}

std::optional<double> KGlobalAccelShortcut::lastHeld() const
{
    return m_held ? m_clock.uptime() : m_releasedAt;
}

} // namespace vesko
