#include "VeskoLinux/accessibility/AtspiBus.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace vesko {
namespace {

// A program that takes longer for one answer is hung, as far as its user is concerned.
constexpr int callLimit = 400; // milliseconds
constexpr int openLimit = 5000; // the bus itself may have to be started

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString statusInterface = QStringLiteral("org.a11y.Status");
const QString busService = QStringLiteral("org.a11y.Bus");
const QString busPath = QStringLiteral("/org/a11y/bus");

} // namespace

AtspiKind atspi::kind(const QVariantList& states, const QVariantList& role)
{
    const auto words = qdbus_cast<QList<uint>>(states.first());
    AtspiKind kind{ .role = role.first().toUInt() };
    for (qsizetype word = 0; word < std::min<qsizetype>(words.size(), 2); ++word)
        kind.states |= std::uint64_t(words[word]) << (32 * word);
    return kind;
}

AtspiCall::AtspiCall(const QDBusPendingCall& call, const char* signature, QObject& home)
    : m_call(call)
    , m_signature(signature)
    , m_home(home)
{
}

AtspiCall::AtspiCall(AtspiCall&& other) noexcept
    : m_call(other.m_call)
    , m_signature(other.m_signature)
    , m_home(other.m_home)
    , m_watcher(std::exchange(other.m_watcher, nullptr))
{
}

AtspiCall::~AtspiCall()
{
    if (!m_watcher)
        return;
    // This may well be running inside the watcher's own signal.
    m_watcher->disconnect();
    m_watcher->deleteLater();
}

void AtspiCall::await_suspend(std::coroutine_handle<> waiting)
{
    m_watcher = new QDBusPendingCallWatcher(m_call, &m_home);
    QObject::connect(
        m_watcher, &QDBusPendingCallWatcher::finished, m_watcher, [waiting] { waiting.resume(); });
}

std::optional<QVariantList> AtspiCall::await_resume() const
{
    const QDBusMessage reply = m_call.reply();
    if (reply.type() != QDBusMessage::ReplyMessage
        || reply.signature() != QLatin1String(m_signature))
        return std::nullopt;
    return reply.arguments();
}

AtspiBus::~AtspiBus()
{
    if (!m_name.isEmpty())
        QDBusConnection::disconnectFromBus(m_name);
}

Task<bool> AtspiBus::open()
{
    auto session = QDBusConnection::sessionBus();
    auto enable = QDBusMessage::createMethodCall(
        busService, busPath, propertiesInterface, QStringLiteral("Set"));
    enable << statusInterface << QStringLiteral("IsEnabled")
           << QVariant::fromValue(QDBusVariant(true));
    AtspiCall enabling(session.asyncCall(enable, openLimit), "", *this);
    const auto ask = QDBusMessage::createMethodCall(
        busService, busPath, busService, QStringLiteral("GetAddress"));
    AtspiCall asking(session.asyncCall(ask, openLimit), "s", *this);

    m_enabled = (co_await enabling).has_value();
    const auto address = co_await asking;
    if (!address)
        co_return false;
    session.connect(busService, busPath, propertiesInterface, QStringLiteral("PropertiesChanged"),
        this, SLOT(statusChanged(QString, QVariantMap)));

    m_name = QStringLiteral("vesko-accessibility-%1").arg(quintptr(this));
    m_connection = QDBusConnection::connectToBus(address->first().toString(), m_name);
    m_connection.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
        QStringLiteral("StateChanged"), { QStringLiteral("focused") }, QString(), this,
        SLOT(stateChanged(QDBusMessage)));
    m_connection.connect(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("NameOwnerChanged"), this, SLOT(ownerChanged(QString, QString, QString)));
    if (onWindow)
        co_await listenToWindows();
    // Programs tell only what someone has asked the registry for.
    co_await registerFor("object:state-changed:focused");
    co_return usable();
}

Task<> AtspiBus::listenToWindows()
{
    // Some programs tell by the one, some by the other.
    m_connection.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
        QStringLiteral("StateChanged"), { QStringLiteral("active") }, QString(), this,
        SLOT(activeChanged(QDBusMessage)));
    m_connection.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Window"),
        QStringLiteral("Activate"), this, SLOT(windowActivated(QDBusMessage)));
    m_connection.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Window"),
        QStringLiteral("Deactivate"), this, SLOT(windowDeactivated(QDBusMessage)));
    AtspiCall active = registerFor("object:state-changed:active");
    AtspiCall activated = registerFor("window:activate");
    AtspiCall deactivated = registerFor("window:deactivate");
    co_await active;
    co_await activated;
    co_await deactivated;
}

AtspiCall AtspiBus::registerFor(const char* event)
{
    return AtspiCall(
        m_connection.asyncCall(
            QDBusMessage::createMethodCall(QStringLiteral("org.a11y.atspi.Registry"),
                QStringLiteral("/org/a11y/atspi/registry"),
                QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"))
                << QString::fromLatin1(event),
            openLimit),
        "", *this);
}

bool AtspiBus::usable() const
{
    return m_enabled && m_connection.isConnected();
}

AtspiCall AtspiBus::call(const AtspiAddress& target, const char* interface, const char* method,
    const char* signature, const QDeadlineTimer& deadline, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(
        target.service, target.path, QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    const int limit = int(std::clamp<qint64>(deadline.remainingTime(), 1, callLimit));
    return AtspiCall(m_connection.asyncCall(message, limit), signature, *this);
}

AtspiCall AtspiBus::property(const AtspiAddress& target, const char* interface, const char* name,
    const QDeadlineTimer& deadline)
{
    return call(target, "org.freedesktop.DBus.Properties", "Get", "v", deadline,
        { QString::fromLatin1(interface), QString::fromLatin1(name) });
}

AtspiCall AtspiBus::processOf(const QString& service, const QDeadlineTimer& deadline)
{
    return call({ QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus") },
        "org.freedesktop.DBus", "GetConnectionUnixProcessID", "u", deadline, { service });
}

void AtspiBus::stateChanged(const QDBusMessage& message)
{
    const auto arguments = message.arguments();
    if (arguments.size() >= 2 && arguments[1].toInt() == 1 && onFocus)
        onFocus({ message.service(), message.path() });
}

void AtspiBus::activeChanged(const QDBusMessage& message)
{
    const auto arguments = message.arguments();
    if (arguments.size() >= 2 && onWindow)
        onWindow({ message.service(), message.path() }, arguments[1].toInt() == 1);
}

void AtspiBus::windowActivated(const QDBusMessage& message)
{
    if (onWindow)
        onWindow({ message.service(), message.path() }, true);
}

void AtspiBus::windowDeactivated(const QDBusMessage& message)
{
    if (onWindow)
        onWindow({ message.service(), message.path() }, false);
}

void AtspiBus::ownerChanged(const QString& name, const QString&, const QString& after)
{
    if (after.isEmpty() && onGone)
        onGone(name);
}

void AtspiBus::statusChanged(const QString& interface, const QVariantMap& changed)
{
    const auto enabled = changed.constFind(QStringLiteral("IsEnabled"));
    if (interface == statusInterface && enabled != changed.constEnd())
        m_enabled = enabled->toBool();
}

} // namespace vesko
