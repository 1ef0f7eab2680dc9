#include "VeskoLinux/accessibility/AtspiBus.h"

#include "VeskoApp/async/Sleep.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace vesko {
namespace {

// A program that takes longer for one answer is hung, as far as its user is concerned.
constexpr int callLimit = 400; // milliseconds
constexpr int registryLimit = 5000; // it may have to be started
// Nobody waits for the bus, and whoever gives out its address may be long in starting it.
constexpr int openLimit = 120000; // milliseconds
constexpr double restartPause = 1; // seconds

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

std::optional<std::int64_t> atspi::count(const std::optional<QVariantList>& reply)
{
    if (!reply)
        return std::nullopt;
    const auto value = reply->first().value<QDBusVariant>().variant();
    if (value.typeId() != QMetaType::Int || value.toInt() < 0)
        return std::nullopt;
    return value.toInt();
}

AtspiAddress atspi::address(const QDBusArgument& structure)
{
    AtspiAddress address;
    QDBusObjectPath path;
    structure.beginStructure();
    structure >> address.service >> path;
    structure.endStructure();
    address.path = path.path();
    return address;
}

AtspiCall::AtspiCall(const QDBusPendingCall& call, const char* signature, QObject& home,
    std::optional<AtspiInquiry> inquiry)
    : m_call(call)
    , m_signature(signature)
    , m_home(home)
    , m_inquiry(std::move(inquiry))
{
}

AtspiCall::AtspiCall(AtspiCall&& other) noexcept
    : m_call(other.m_call)
    , m_signature(other.m_signature)
    , m_home(other.m_home)
    , m_inquiry(other.m_inquiry)
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
    if (m_inquiry && QDBusError(reply).type() == QDBusError::NoReply)
        m_inquiry->noteUnanswered();
    if (reply.type() != QDBusMessage::ReplyMessage
        || reply.signature() != QLatin1String(m_signature))
        return std::nullopt;
    return reply.arguments();
}

AtspiBus::AtspiBus(EventClock& clock)
    : m_clock(clock)
    , m_watcher(busService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) { busChanged(owner); });
    QDBusConnection::sessionBus().connect(busService, busPath, propertiesInterface,
        QStringLiteral("PropertiesChanged"), this, SLOT(statusChanged(QString, QVariantMap)));
}

AtspiBus::~AtspiBus()
{
    close();
}

void AtspiBus::start()
{
    if (!std::exchange(m_opening, true))
        m_tasks.spawn(open());
}

// Whoever gives out the address starts the bus and ends with it.
void AtspiBus::busChanged(const QString& owner)
{
    m_enabled = m_enabled && !owner.isEmpty();
    m_changed = m_opening && !owner.isEmpty();
    if (m_opening)
        return; // it came because we asked, or is asked at the end
    if (m_name.isEmpty()) {
        start();
    } else {
        m_opening = true;
        m_tasks.spawn(reopen());
    }
}

// Asking starts it where the session can. What ends at once is not started over and over.
Task<> AtspiBus::reopen()
{
    m_enabled = false;
    // By then the last call to the one that ended has failed.
    co_await sleepFor(m_clock, restartPause);
    close();
    co_await open();
}

Task<> AtspiBus::open()
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

    const bool enabled = (co_await enabling).has_value();
    const auto address = co_await asking;
    m_enabled = enabled;
    const bool open = address && co_await connectTo(address->first().toString());
    if (!open && std::exchange(m_changed, false)) {
        m_tasks.spawn(reopen());
        co_return;
    }
    m_opening = false;
    if (open && onOpen)
        onOpen();
}

Task<bool> AtspiBus::connectTo(QString address)
{
    m_name = QStringLiteral("vesko-accessibility-%1-%2").arg(quintptr(this)).arg(++m_opened);
    m_connection = QDBusConnection::connectToBus(address, m_name);
    if (!m_connection.isConnected()) {
        close();
        co_return false;
    }
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
            registryLimit),
        "", *this);
}

void AtspiBus::close()
{
    m_connection = QDBusConnection(QString());
    if (!m_name.isEmpty())
        QDBusConnection::disconnectFromBus(std::exchange(m_name, QString()));
}

bool AtspiBus::usable() const
{
    return m_enabled && m_connection.isConnected();
}

AtspiCall AtspiBus::call(const AtspiAddress& target, const char* interface, const char* method,
    const char* signature, const AtspiInquiry& inquiry, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(
        target.service, target.path, QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    const int limit = int(std::clamp<qint64>(inquiry.remainingTime(), 1, callLimit));
    return AtspiCall(m_connection.asyncCall(message, limit), signature, *this, inquiry);
}

AtspiCall AtspiBus::property(const AtspiAddress& target, const char* interface, const char* name,
    const AtspiInquiry& inquiry)
{
    return call(target, "org.freedesktop.DBus.Properties", "Get", "v", inquiry,
        { QString::fromLatin1(interface), QString::fromLatin1(name) });
}

AtspiCall AtspiBus::processOf(const QString& service, const AtspiInquiry& inquiry)
{
    return call({ QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus") },
        "org.freedesktop.DBus", "GetConnectionUnixProcessID", "u", inquiry, { service });
}

void AtspiBus::stateChanged(const QDBusMessage& message)
{
    const auto arguments = message.arguments();
    if (arguments.size() >= 2 && onFocus)
        onFocus({ message.service(), message.path() }, arguments[1].toInt() == 1);
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
